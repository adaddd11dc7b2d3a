"""What is generated matches its source, and no test is left out of the build."""

import json
import re
import subprocess
import sys
import unittest

from project import BINARIES, PROJECT, Rules, files, read


def check(script):
    return subprocess.run([sys.executable, PROJECT / "scripts" / script, "--check"], capture_output=True, text=True)


class Generated(Rules):
    def test_the_sample_house_is_what_its_script_makes(self):
        done = check("make_house.py")
        self.assertEqual(done.returncode, 0, done.stdout)

    def test_the_tables_of_schemas_and_standard_sets_are_what_their_script_makes(self):
        done = check("make_schema_tables.py")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)


class Build(Rules):
    def test_each_test_source_is_compiled(self):
        commands = json.loads((BINARIES.parent / "compile_commands.json").read_text(encoding="utf-8"))
        compiled = {entry["file"] for entry in commands}
        cache = (BINARIES.parent / "CMakeCache.txt").read_text(encoding="utf-8")
        left_out = {"desktop"} if "BUILD_DESKTOP:BOOL=OFF" in cache else set()
        # A library loaded before all others and a sanitizer's, which must come first, exclude each other; and it is
        # not the writing of coverage that is to fail.
        without_faults = r"^(SANITIZERS:\w+=.|CMAKE_CXX_FLAGS:\w+=.*--coverage)"
        left_out |= {"faults"} if re.search(without_faults, cache, re.MULTILINE) else set()
        tests = [path for path in files(".cpp") if path.parts[0] == "tests" and path.parts[1] not in left_out]
        self.assertTrue(tests)
        self.expect_none(path for path in tests if str(PROJECT / path) not in compiled)

    def test_each_test_script_is_run(self):
        having_cases = (path for path in files(".py")
                        if path.parts[0] == "tests" and re.search(r"^    def test_", read(path), re.MULTILINE))
        self.expect_none(f"{path}: scripts/run_tests.py looks for tests/*/test_*.py" for path in having_cases
                         if not path.match("tests/*/test_*.py"))


if __name__ == "__main__":
    unittest.main()
