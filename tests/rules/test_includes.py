"""Which folder may include what. The add-on must build against another host kit, the model must stand alone."""

import re
import unittest

from project import Rules, includes, read, resolve, sources

# What a foreign header belongs to; the first pattern that matches the name counts.
LIBRARIES = (
    ("ICU", r"unicode/.+\.h$"),
    ("zip", r"zip\.h$"),
    ("expat", r"expat\.h$"),
    ("xlsxwriter", r"xlsxwriter\.h$"),
    ("uuid", r"uuid/uuid\.h$"),
    ("Highway", r"hwy/.+\.h$"),
    ("Clipper", r"clipper\.hpp$"),
    ("fmt", r"fmt/.+\.h$"),
    ("json", r"nlohmann/.+"),
    ("CLI", r"CLI/.+"),
    ("Qt", r"Q[A-Z]\w+$|Qt\w+/.+|q\w+\.h$"),
    ("standard", r"[a-z_]+$|std(def|int|bool|arg)\.h$"),
    ("macOS", r"mach-o/.+\.h$"),
    ("system", r"[a-z_/]+\.h$"),
)

# Folder -> (folders of the project, foreign libraries). What is not listed is forbidden.
MAY_INCLUDE = {
    "Src/": (("Src/", "binding/", "host/include/"), ("standard",)),
    "binding/": (("binding/", "Src/", "host/include/"), ("standard", "macOS")),
    "host/include/": (("host/include/",), ("standard",)),
    "host/base/": (("host/base/",), ("standard",)),
    "host/text/": (("host/text/",), ("standard", "ICU")),
    "host/model/": (("host/model/", "host/text/", "host/base/"),
                    ("standard", "system", "ICU", "zip", "uuid", "Highway", "Clipper")),
    "host/frameworks/": (("host/frameworks/", "host/include/", "host/text/"), ("standard", "system", "ICU")),
    "host/services/": (("host/services/", "host/frameworks/", "host/include/", "host/model/", "host/text/"),
                       ("standard", "system", "ICU", "fmt")),
    "host/selection/": (("host/selection/", "host/model/", "host/text/"), ("standard", "ICU")),
    "host/updatefile/": (("host/updatefile/", "host/include/", "host/model/", "host/text/"), ("standard", "fmt")),
    "host/readback/": (("host/readback/", "host/model/", "host/text/", "host/updatefile/"), ("standard",)),
    "host/comparing/": (("host/comparing/", "host/model/", "host/readback/", "host/text/", "host/updatefile/"),
                        ("standard",)),
    "host/report/": (("host/report/", "host/comparing/", "host/model/", "host/tables/", "host/text/"),
                     ("standard", "fmt", "json")),
    "host/tables/": (("host/tables/", "host/text/", "host/base/"),
                     ("standard", "system", "ICU", "zip", "expat", "xlsxwriter")),
    "host/importing/": (("host/importing/", "host/frameworks/", "host/include/", "host/model/", "host/readback/",
                         "host/report/", "host/tables/", "host/text/", "host/updatefile/"),
                        ("standard", "system", "fmt")),
    "host/console/": (("host/",), ("standard", "system", "ICU", "fmt", "json", "CLI")),
    "host/desktop/": (("host/",), ("standard", "system", "ICU", "fmt", "Qt")),
}
# The building model from the ground up: a file includes its own folder and those named before it, never one behind.
MODEL_FOLDERS = (
    "base",
    "step/syntax", "step/disk", "step/index", "step/reading", "step/editing", "step",
    "ifc/schema", "ifc/values", "ifc/index", "ifc/data", "ifc/geometry", "ifc/plan",
    ".",
)
PROGRAMS = ("host/console/", "host/desktop/")
# Of the model's inside the programs know the schema's facts alone; the rest is what the facade hides.
HIDDEN_FROM_PROGRAMS = tuple(f"host/model/ifc/{folder}/" for folder in ("values", "index", "data", "geometry", "plan"))
WRITTEN_BY_THE_BUILD = (".moc", ".inc")


def library_of(name):
    return next((library for library, pattern in LIBRARIES if re.match(pattern, name)), "unknown")


def included(folder):
    """(place, the project's file or None, name) of each include line of the folder."""
    for path in sources(*([folder] if isinstance(folder, str) else folder)):
        for number, name, quoted in includes(path):
            own = resolve(path, name, quoted)
            if own or not name.endswith(WRITTEN_BY_THE_BUILD):
                yield f"{path}:{number}", own, name


class IncludeRules(Rules):
    def test_each_folder_includes_only_what_it_may(self):
        for folder, (folders, libraries) in MAY_INCLUDE.items():
            self.assertTrue(sources(folder), f"no sources in {folder}: has it moved?")
            self.expect_none(f"{place}: {folder} may not include {own or name}"
                             for place, own, name in included(folder)
                             if not (own.as_posix().startswith(folders) if own else library_of(name) in libraries))

    def test_no_folder_of_the_model_includes_one_above_it(self):
        def height(path):
            return MODEL_FOLDERS.index(path.relative_to("host/model").parent.as_posix())

        known = {path.relative_to("host/model").parent.as_posix() for path in sources("host/model/")}
        self.assertEqual(known, set(MODEL_FOLDERS), "a folder of host/model has no place in the order, or is gone")
        for path in sources("host/model/"):
            own = filter(None, (resolve(path, name, quoted) for _, name, quoted in includes(path)))
            self.expect_none(f"{path} includes {other}, which stands above it" for other in own
                             if other.is_relative_to("host/model") and height(other) > height(path))

    def test_programs_do_not_include_each_other(self):
        for folder in PROGRAMS:
            others = tuple(set(PROGRAMS) - {folder})
            self.expect_none(f"{place}: {own}" for place, own, _ in included(folder)
                             if own and own.as_posix().startswith(others))

    def test_programs_do_not_include_the_inside_of_the_model(self):
        self.expect_none(f"{place}: {own}" for place, own, _ in included(PROGRAMS + ("host/importing/",))
                         if own and own.as_posix().startswith(HIDDEN_FROM_PROGRAMS))

    def test_only_the_two_programs_have_a_main(self):
        having = [path.as_posix() for path in sources("Src/", "binding/", "host/")
                  if re.search(r"^int main\(", read(path), re.MULTILINE)]
        self.expect_none(path for path in having if not path.startswith(PROGRAMS))
        for folder in PROGRAMS:
            self.assertEqual(len([path for path in having if path.startswith(folder)]), 1, f"mains in {folder}")


if __name__ == "__main__":
    unittest.main()
