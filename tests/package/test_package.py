"""The Debian packages: made, looked at, installed into a bare root, run there, removed; and `cmake --install`."""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from bare_root import BareRoot, obstacle

PROJECT = Path(os.environ.get("PROJECT_DIR") or Path(__file__).resolve().parents[2])
BINARIES = Path(os.environ.get("BINARY_DIR") or PROJECT / "build/release/bin")
BUILD = BINARIES.parent
NAMES = ("modelhost", "modelhost-desktop", "modelhost-doc")


def why_not():
    cache = (BUILD / "CMakeCache.txt").read_text(encoding="utf-8")
    if "CMAKE_BUILD_TYPE:STRING=Release" not in cache or "BUILD_DESKTOP:BOOL=OFF" in cache:
        return "only a release build with the window is packed"
    if not shutil.which("cpack") or not shutil.which("dpkg-shlibdeps"):
        return "cpack or dpkg-shlibdeps (dpkg-dev) is not installed"
    return ""


def fields_of(package):
    text = subprocess.run(["dpkg-deb", "--field", package], capture_output=True, text=True, check=True).stdout
    return dict(re.findall(r"^([\w-]+): *((?:.*)(?:\n .*)*)", text, re.MULTILINE))


class Packed(unittest.TestCase):
    """What the tests of this file need once: the packages and what is in them."""

    @classmethod
    def setUpClass(cls):
        if why_not():
            raise unittest.SkipTest(why_not())
        cls.place = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.place.cleanup)
        folder = Path(cls.place.name)
        made = subprocess.run(["cpack", "--config", BUILD / "CPackConfig.cmake", "-B", folder / "made"],
                              capture_output=True, text=True, cwd=folder)
        if made.returncode:
            raise AssertionError(made.stdout + made.stderr)
        cls.packages = {fields_of(path)["Package"]: path for path in (folder / "made").glob("*.deb")}
        for name, path in cls.packages.items():
            subprocess.run(["dpkg-deb", "--extract", path, folder / name], check=True)

    def folder(self, name):
        return Path(self.place.name) / name

    def contents(self, name):
        return {"/" + str(path.relative_to(self.folder(name))) for path in self.folder(name).rglob("*")
                if not path.is_dir() or path.is_symlink()}


class Contents(Packed):
    def test_there_are_three(self):
        self.assertEqual(set(self.packages), set(NAMES))

    def test_each_part_is_where_systems_look_for_it(self):
        command_line, desktop = self.contents("modelhost"), self.contents("modelhost-desktop")
        for path in ("/usr/bin/modelhost", "/usr/libexec/modelhost/ZUNACAddin19.bundle/Contents/Linux/ZUNACAddin19",
                     "/usr/share/man/man1/modelhost.1.gz", "/usr/share/man/man1/modelhost-import.1.gz",
                     "/usr/share/bash-completion/completions/modelhost",
                     "/usr/share/zsh/vendor-completions/_modelhost",
                     "/usr/share/fish/vendor_completions.d/modelhost.fish"):
            self.assertIn(path, command_line)
        for path in ("/usr/bin/modelhost-desktop", "/usr/share/applications/modelhost-desktop.desktop",
                     "/usr/share/icons/hicolor/scalable/apps/modelhost-desktop.svg",
                     "/usr/share/mime/packages/modelhost.xml", "/usr/share/man/man1/modelhost-desktop.1.gz"):
            self.assertIn(path, desktop)
        self.assertIn("/usr/share/doc/modelhost-doc/docs/command-line.md", self.contents("modelhost-doc"))

    def test_what_the_programs_are_linked_with_is_depended_on(self):
        needed = {name: fields_of(path).get("Depends", "") for name, path in self.packages.items()}
        for library in ("libc6 ", "libicu72 ", "libzip4 ", "libxlsxwriter4 "):
            self.assertIn(library, needed["modelhost"])
        self.assertIn("libqt6widgets6 ", needed["modelhost-desktop"])
        self.assertIn("modelhost (= ", needed["modelhost-desktop"])
        self.assertNotIn("libqt6", needed["modelhost"])

    def test_nothing_names_the_folder_where_it_was_built(self):
        places = {str(place).encode() for place in (PROJECT, BUILD, PROJECT.resolve(), BUILD.resolve())}
        looked_at = 0
        for name in NAMES:
            for path in self.contents(name):
                file = self.folder(name) / path.lstrip("/")
                if file.is_symlink():
                    self.assertFalse(os.path.isabs(os.readlink(file)), f"{path} leads to {os.readlink(file)}")
                    continue
                content = subprocess.run(["gzip", "-dc", file], capture_output=True, check=True).stdout \
                    if file.suffix == ".gz" else file.read_bytes()
                self.assertFalse([place for place in places if place in content], path)
                looked_at += 1
        self.assertGreater(looked_at, 30)

    def test_libraries_are_found_beside_the_programs(self):
        folder = self.folder("modelhost") / "usr/libexec/modelhost"
        images = [folder / "modelhost", folder / "libhostframeworks.so",
                  folder / "ZUNACAddin19.bundle/Contents/Linux/ZUNACAddin19",
                  self.folder("modelhost-desktop") / "usr/libexec/modelhost/modelhost-desktop"]
        for image in images:
            listing = subprocess.run(["readelf", "--dynamic", image], capture_output=True, text=True, check=True).stdout
            for found in re.findall(r"\(R(?:UN)?PATH\).*\[(.*)\]", listing):
                self.assertTrue(all(path.startswith("$ORIGIN") for path in found.split(":")), f"{image}: {found}")

    @unittest.skipUnless(shutil.which("desktop-file-validate"), "desktop-file-validate is not installed")
    def test_the_desktop_entry_is_valid(self):
        entry = self.folder("modelhost-desktop") / "usr/share/applications/modelhost-desktop.desktop"
        done = subprocess.run(["desktop-file-validate", entry], capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_the_desktop_entry_names_what_is_there(self):
        share = self.folder("modelhost-desktop") / "usr/share"
        entry = (share / "applications/modelhost-desktop.desktop").read_text(encoding="utf-8")
        value = dict(re.findall(r"^([\w\[\]]+)=(.*)$", entry, re.MULTILINE))
        self.assertEqual(value["Exec"], "modelhost-desktop %f")
        self.assertTrue((share / f"icons/hicolor/scalable/apps/{value['Icon']}.svg").exists())
        types = re.findall(r'<mime-type type="([^"]+)">', (share / "mime/packages/modelhost.xml").read_text())
        self.assertEqual(types, value["MimeType"].strip(";").split(";"))

    @unittest.skipUnless(shutil.which("lintian"), "lintian is not installed")
    def test_lintian_has_nothing_to_say(self):
        done = subprocess.run(["lintian", "--allow-root", *self.packages.values()], capture_output=True, text=True)
        serious = [line for line in done.stdout.splitlines() if line.startswith(("E:", "W:"))]
        self.assertEqual((serious, done.returncode), ([], 0), done.stderr)


class Installed(Packed):
    @classmethod
    def setUpClass(cls):
        if obstacle():
            raise unittest.SkipTest(obstacle())
        super().setUpClass()
        try:
            cls.root = BareRoot(Path(cls.place.name) / "root",
                                {name: fields_of(path) for name, path in cls.packages.items()})
        except LookupError as missing:
            raise unittest.SkipTest(str(missing))
        shutil.copy(PROJECT / "samples/house.ifc", cls.root.folder / "tmp/house.ifc")
        shutil.copy(PROJECT / "samples/updates.txt", cls.root.folder / "tmp/updates.txt")

    def install(self):
        installed = self.root.dpkg("--install", *self.packages.values())
        self.assertEqual(installed.returncode, 0, installed.stderr)

    def remove(self):
        removed = self.root.dpkg("--purge", *NAMES)
        self.assertEqual(removed.returncode, 0, removed.stderr)
        self.assertEqual(list((self.root.folder / "var/lib/dpkg/info").glob("modelhost*")), [])

    def test_removed_they_leave_no_trace(self):
        before = self.root.files()
        self.install()
        self.assertGreater(len(self.root.files()), len(before))
        self.remove()
        self.assertEqual(self.root.files(), before)

    def test_installed_both_programs_run(self):
        self.install()
        try:
            self.check_command_line()
            self.check_desktop()
        finally:
            self.remove()
        # What a user's run leaves is the user's: settings, and the caches of libraries.
        left = {path for path in self.root.files() if "modelhost" in path and "/.config/" not in path}
        self.assertEqual(left, set())

    def check_command_line(self):
        version = self.root.run("/usr/bin/modelhost", "--version")
        self.assertRegex(version.stdout, r"^modelhost [0-9.]+\nwith ICU ", version.stderr)
        # With the add-on, which is found without being named.
        done = self.root.run("/usr/bin/modelhost", "import", "/tmp/house.ifc", "/tmp/updates.txt", "--apply", "-o",
                             "/tmp/out.ifc")
        self.assertEqual(done.returncode, 2, done.stderr)
        self.assertIn("9 done, 2 errors", done.stdout)
        self.assertIn("IFCLABEL('F 120-AB')", (self.root.folder / "tmp/out.ifc").read_text(encoding="utf-8"))

    def check_desktop(self):
        """It is up when it has loaded the add-on; the window has no way to be asked more without a display."""
        script = ('QT_QPA_PLATFORM=offscreen chroot "$0" "$@" & program=$!; tries=0; '
                  'until grep -q Contents/Linux/ZUNACAddin19 "$0/proc/$program/maps"; do '
                  'tries=$((tries + 1)); [ $tries -lt 300 ] && kill -0 $program || exit 7; sleep 0.1; done; '
                  'grep -c libqoffscreen "$0/proc/$program/maps"; kill $program')
        done = subprocess.run(self.root.inside(script, "/usr/bin/modelhost-desktop", "/tmp/house.ifc"),
                              capture_output=True, text=True, timeout=120)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertGreater(int(done.stdout.split()[-1]), 0)

    def test_without_a_library_that_is_depended_on_they_are_not_configured(self):
        """The root holds what is depended on and nothing more; a machine that has everything would not show this."""
        self.assertNotIn("qt6-base-dev", self.root.names)
        self.assertNotIn("g++", self.root.names)
        status = self.root.folder / "var/lib/dpkg/status"
        whole = status.read_text(encoding="utf-8")
        try:
            status.write_text("\n\n".join(stanza for stanza in whole.split("\n\n")
                                          if not stanza.startswith("Package: libxlsxwriter4\n")), encoding="utf-8")
            installed = self.root.dpkg("--install", self.packages["modelhost"])
            self.assertNotEqual(installed.returncode, 0)
            self.assertIn("libxlsxwriter4", installed.stderr)
        finally:
            self.root.dpkg("--purge", "modelhost")
            status.write_text(whole, encoding="utf-8")


class Prefix(unittest.TestCase):
    def setUp(self):
        if why_not():
            self.skipTest(why_not())

    def test_a_prefix_can_be_moved(self):
        with tempfile.TemporaryDirectory() as name:
            first, second = Path(name) / "first", Path(name) / "second"
            done = subprocess.run(["cmake", "--install", BUILD, "--prefix", first], capture_output=True, text=True)
            self.assertEqual(done.returncode, 0, done.stderr)
            first.rename(second)
            done = subprocess.run([second / "bin/modelhost", "import", PROJECT / "samples/house.ifc",
                                   PROJECT / "samples/updates.txt"], capture_output=True, text=True)
            self.assertEqual(done.returncode, 0, done.stderr)
            self.assertIn("13 rows", done.stdout)
            version = subprocess.run([second / "bin/modelhost-desktop", "--version"], capture_output=True, text=True)
            self.assertRegex(version.stdout, r"^modelhost-desktop [0-9.]+")


if __name__ == "__main__":
    sys.exit(unittest.main())
