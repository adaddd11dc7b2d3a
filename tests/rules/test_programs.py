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


if __name__ == "__main__":
    unittest.main()
