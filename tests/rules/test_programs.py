"""What the built programs and images carry with them."""

import re
import subprocess
import unittest

from project import BINARIES, Rules


def run_paths(image):
    listing = subprocess.run(["readelf", "--dynamic", str(image)], capture_output=True, text=True, check=True).stdout
    return [path for line in re.findall(r"\(R(?:UN)?PATH\).*\[(.*)\]", listing) for path in line.split(":") if path]


class Programs(Rules):
    def images(self):
        named = ("modelhost", "ZUNACAddin19.bundle/Contents/Linux/ZUNACAddin19", "modelhost-desktop")
        found = [BINARIES / name for name in named if (BINARIES / name).exists()]
        self.assertGreaterEqual(len(found), 2, f"where are the programs? Not in {BINARIES}")
        return found

    def test_libraries_are_found_from_the_program_wherever_it_is_moved(self):
        for image in self.images():
            paths = run_paths(image)
            self.assertTrue(paths, f"{image} has no run path")
            self.expect_none(f"{image}: {path}" for path in paths if not path.startswith("$ORIGIN"))

    def test_nothing_is_to_be_destroyed_at_the_end_of_a_thread(self):
        # The C library makes a note of it, and ends the program where there is no memory for that.
        for image in [*self.images(), BINARIES / "libhostframeworks.so"]:
            wanted = subprocess.run(["nm", "--dynamic", "--undefined-only", str(image)], capture_output=True, text=True,
                                    check=True).stdout
            self.assertTrue(" U " in wanted, image)
            self.assertFalse("thread_atexit" in wanted, image)


if __name__ == "__main__":
    unittest.main()
