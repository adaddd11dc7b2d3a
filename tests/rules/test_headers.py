"""Every header can be included first.

A source that begins with its own header proves it each time it is compiled; the other headers are compiled here.
"""

import concurrent.futures
import os
import re
import shutil
import subprocess
import unittest

from project import BINARIES, INCLUDE_ROOTS, PROJECT, Rules, files, includes, read, resolve

CCACHE = ["ccache"] if shutil.which("ccache") else []


def qt_flags():
    found = subprocess.run(["pkg-config", "--cflags", "Qt6Widgets", "Qt6Test"], capture_output=True, text=True)
    return found.stdout.split() if found.returncode == 0 else None


def complaint(header, flags):
    # Twice, for the guard. In the same place each time, and through ccache: only what changed is compiled again.
    source = BINARIES.parent / "headers" / f"{header.as_posix().replace('/', '-')}.cpp"
    source.parent.mkdir(exist_ok=True)
    source.write_text(f'#include "{PROJECT / header}"\n#include "{PROJECT / header}"\n', encoding="utf-8")
    roots = [f"-I{PROJECT / root}" for root in INCLUDE_ROOTS]
    command = [*CCACHE, "g++", "-std=c++20", "-fPIC", *roots, *flags, "-c", source, "-o", source.with_suffix(".o")]
    done = subprocess.run(command, capture_output=True, text=True)
    return f"{header}\n{done.stderr}" if done.returncode else ""


def proved_by_its_source(header):
    source = header.with_suffix(".cpp")
    if not (PROJECT / source).is_file():
        return False
    _, name, quoted = next(includes(source), (0, "", True))
    return resolve(source, name, quoted) == header


def headers_named_as(source):
    """Those of the source's name: beside it, else in the host interface, else anywhere in its part of the host."""
    parts = (source.parts[:2], ("host", "include"))
    named = [header for header in files(".hpp") if header.stem == source.stem and header.parts[:2] in parts]
    beside = [header for header in named if header.parent == source.parent]
    interface = [header for header in named if header.parts[1] == "include"]
    return beside or interface or named


class Sources(Rules):
    def test_each_begins_with_the_header_of_its_name_and_stands_beside_it(self):
        sources = [path for path in files(".cpp") if path.parts[0] == "host"]
        self.assertTrue(sources)
        for source in sources:
            headers = headers_named_as(source)
            if not headers:
                continue
            place = headers[0].parent
            self.assertTrue(place == source.parent or place.parts[:2] == ("host", "include"),
                            f"{source} does not stand beside {headers[0]}")
            _, name, quoted = next(includes(source), (0, "", True))
            self.assertEqual(resolve(source, name, quoted), headers[0], f"{source} includes another header first")

    def test_those_of_test_programs_are_named_alike(self):
        """What holds cases is called by its subject and Test: ArchiveTest.cpp."""
        holding_cases = [path for path in files(".cpp") if path.parts[0] == "tests"
                         and re.search(r"^(RC_GTEST_PROP|(TYPED_)?TEST(_[FP])?)\(", read(path), re.MULTILINE)]
        self.assertTrue(holding_cases)
        self.expect_none(path for path in holding_cases if not path.name.endswith("Test.cpp"))


@unittest.skipUnless(shutil.which("g++"), "g++ is not installed")
class Headers(Rules):
    def test_each_compiles_alone(self):
        flags = qt_flags()
        headers = [header for header in files(".hpp") if not proved_by_its_source(header)
                   and (flags is not None or "desktop" not in header.parts)]
        self.assertTrue(headers)
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            self.expect_none(filter(None, pool.map(lambda header: complaint(header, flags or []), headers)))


if __name__ == "__main__":
    unittest.main()
