"""The script that counts the tests: what fails, crashes or is left out must show in its last line."""

import json
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from project import PROJECT


def case(name, result="COMPLETED", failures=()):
    entry = {"name": name, "status": "NOTRUN" if result == "SUPPRESSED" else "RUN", "result": result}
    return entry | ({"failures": [{"failure": text} for text in failures]} if failures else {})


def program(*cases, status=0):
    """A stand-in for a test program: writes the report it is asked for and ends with the status."""
    report = json.dumps({"testsuites": [{"name": "Suite", "testsuite": list(cases)}]})
    return f"""#!{sys.executable}
import sys
out = next(a.split("json:", 1)[1] for a in sys.argv if a.startswith("--gtest_output="))
open(out, "w").write({report!r})
sys.exit({status})
"""


class Runner(unittest.TestCase):
    def run_on(self, **programs):
        """Runs the script in a project that has nothing but these programs. @return (exit status, last line)"""
        with tempfile.TemporaryDirectory() as name:
            script = Path(name) / "scripts/run_tests.py"
            script.parent.mkdir()
            shutil.copy(PROJECT / "scripts/run_tests.py", script)
            folder = Path(name) / "build/tests"
            folder.mkdir(parents=True)
            for program_name, content in programs.items():
                path = folder / f"{program_name}_tests"
                path.write_text(content, encoding="utf-8")
                path.chmod(0o755)
            done = subprocess.run([sys.executable, script, folder.parent], capture_output=True, text=True)
        return done.returncode, done.stdout.splitlines()[-1]

    def test_counts_the_cases_of_all_programs(self):
        self.assertEqual(self.run_on(a=program(case("x"), case("y", "SKIPPED")), b=program(case("z"))),
                         (0, "2 passed, 0 failed, 1 skipped"))

    def test_a_failed_case_fails_the_run(self):
        self.assertEqual(self.run_on(a=program(case("x"), case("y", failures=["expected 1"]), status=1)),
                         (1, "1 passed, 1 failed, 0 skipped"))

    def test_a_crash_counts_as_a_failure(self):
        crash = f"#!{sys.executable}\nimport os\nos.abort()\n"
        self.assertEqual(self.run_on(a=crash), (1, "0 passed, 1 failed, 0 skipped"))

    def test_a_bad_end_after_good_cases_counts_as_a_failure(self):
        self.assertEqual(self.run_on(a=program(case("x"), status=23)), (1, "1 passed, 1 failed, 0 skipped"))

    def test_cases_left_out_are_not_counted(self):
        self.assertEqual(self.run_on(a=program(case("x"), case("y", "SUPPRESSED"))),
                         (0, "1 passed, 0 failed, 0 skipped"))

    def test_a_run_without_any_test_fails(self):
        self.assertEqual(self.run_on(), (1, "0 passed, 0 failed, 0 skipped"))


if __name__ == "__main__":
    unittest.main()
