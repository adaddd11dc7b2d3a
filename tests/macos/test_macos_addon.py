"""The add-on for macOS, made by scripts/macos-addon and read as the loader of that system reads it."""

import os
import plistlib
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

import macho

PROJECT = Path(os.environ.get("PROJECT_DIR") or Path(__file__).resolve().parents[2])
BINARIES = Path(os.environ.get("BINARY_DIR") or PROJECT / "build/release/bin")
NAME = "ZUNACAddin19"
ENTRIES = {"_GetExportedFuncAddrs", "_SetImportedFuncAddrs", "_GSInitImage", "_GSTermImage"}
CORE_FOUNDATION = "/System/Library/Frameworks/CoreFoundation.framework/Versions/A/CoreFoundation"
CPP, SYSTEM = "/usr/lib/libc++.1.dylib", "/usr/lib/libSystem.B.dylib"
TABLE_SIZE = 502 * 8


def tools_are_there():
    there = list((PROJECT / "build/python").glob("lib/python3*/site-packages/ziglang/zig"))
    return bool(there and shutil.which("ld64.lld-19") and shutil.which("llvm-lipo-14"))


def names_of_the_host():
    """What the stand-in's frameworks define, as macOS spells it: there std::int64_t is long long, not long."""
    library = BINARIES / "libhostframeworks.so"
    listed = subprocess.run(["nm", "-D", "--defined-only", library], check=True, capture_output=True, text=True).stdout
    return readable(line.split()[-1].partition("@")[0] for line in listed.splitlines())


def readable(names):
    done = subprocess.run(["c++filt"], input="\n".join(names), check=True, capture_output=True, text=True)
    return {re.sub(r"\blong long\b", "long", line) for line in done.stdout.splitlines()}


@unittest.skipUnless(tools_are_there(), "the cross compiler for macOS is not installed; scripts/macos-addon does it")
class MacosAddon(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.bundle = Path(folder.name) / f"{NAME}.bundle"
        done = subprocess.run([PROJECT / "scripts/macos-addon", folder.name], capture_output=True, text=True)
        if done.returncode:
            raise AssertionError(done.stdout + done.stderr)
        cls.images = macho.images((cls.bundle / "Contents/MacOS" / NAME).read_bytes())

    def each_image(self):
        for processor, image in self.images.items():
            with self.subTest(processor=processor):
                yield image

    def test_one_file_holds_a_bundle_for_each_processor(self):
        self.assertEqual(set(self.images), {"x86_64", "arm64"})
        for image in self.each_image():
            self.assertEqual(image.kind, macho.BUNDLE)
            self.assertEqual((image.platform, image.oldest), (1, (11, 0)))

    def test_the_image_for_arm64_is_signed_as_that_system_demands(self):
        self.assertIn(macho.SIGNATURE, self.images["arm64"].commands)

    def test_the_four_entry_points_are_exported_and_nothing_else(self):
        for image in self.each_image():
            self.assertEqual(set(image.exports()), ENTRIES)

    def test_no_code_can_be_written(self):
        for image in self.each_image():
            having_code = [segment.name for segment in image.segments
                           if any(section.flags & macho.INSTRUCTIONS for section in segment.sections)]
            self.assertEqual(having_code, ["__TEXT"])
            for segment in image.segments:
                for rights in (segment.allowed, segment.protection):
                    self.assertNotEqual(rights & (macho.WRITE | macho.EXECUTE), macho.WRITE | macho.EXECUTE,
                                        segment.name)

    def test_only_libraries_of_the_system_are_named(self):
        for image in self.each_image():
            self.assertEqual(sorted(image.libraries), sorted([CORE_FOUNDATION, CPP, SYSTEM]))

    def test_each_import_is_looked_for_where_it_is(self):
        of_host = names_of_the_host()
        for image in self.each_image():
            places = image.imports()
            by_place = {place: {name for name in places if places[name] == place} for place in set(places.values())}
            self.assertEqual(set(by_place), {CORE_FOUNDATION, CPP, SYSTEM, macho.HOST})
            self.assertEqual(by_place[CORE_FOUNDATION], {
                "_CFBundleCopyBundleURL", "_CFRelease", "_CFStringCreateMutableCopy", "_CFStringGetCString",
                "_CFStringNormalize", "_CFURLCopyFileSystemPath", "_CFURLCopyLastPathComponent",
                "_kCFAllocatorDefault"})
            self.assertLessEqual({"___gxx_personality_v0", "__Znwm", "__ZdlPv"}, by_place[CPP])
            self.assertLessEqual({"_atexit", "_memcpy", "_atof"}, by_place[SYSTEM])
            from_host = readable(name.removeprefix("_") for name in by_place[macho.HOST])
            self.assertLessEqual({"GSRoot_DelayInitImage", "BNFillMemory", "RSOpenResourceFile(char const*)"},
                                 from_host)
            self.assertEqual(from_host - of_host, set())

    def test_loading_runs_the_start_hook_and_nothing_else(self):
        for image in self.each_image():
            self.assertEqual(image.start_functions(), [image.exports()["_GSInitImage"]])

    def test_the_hosts_table_has_its_place_in_the_data_segment(self):
        for image in self.each_image():
            segment, section, address, size = image.place_of("_gImpList")
            self.assertEqual((segment.name, segment.protection), ("__DATA", macho.READ | macho.WRITE))
            self.assertEqual((section.kind(), address % 8, size), (macho.ZERO_FILLED, 0, TABLE_SIZE))

    def test_exceptions_of_the_host_find_their_handlers(self):
        for image in self.each_image():
            self.assertEqual(image.imports()["__ZTIN2GS11GSExceptionE"], macho.HOST)
            personalities, functions = image.handlers()
            self.assertEqual(personalities, 1)
            self.assertGreater(functions, 5)

    def test_the_bundle_has_its_parts_in_their_places(self):
        contents = self.bundle / "Contents"
        there = {path.relative_to(contents).as_posix(): path for path in contents.rglob("*") if path.is_file()}
        resources = {path.relative_to(PROJECT / "resources"): path for path in (PROJECT / "resources").rglob("*.res")}
        self.assertEqual(set(there), {"Info.plist", f"MacOS/{NAME}", *(f"Resources/{path}" for path in resources)})
        for path, original in resources.items():
            self.assertEqual(there[f"Resources/{path}"].read_bytes(), original.read_bytes())
        info = plistlib.loads(there["Info.plist"].read_bytes())
        self.assertEqual((info["CFBundleExecutable"], info["CFBundlePackageType"]), (NAME, "BNDL"))
        self.assertTrue(os.access(there[f"MacOS/{NAME}"], os.X_OK))


if __name__ == "__main__":
    unittest.main()
