"""The script that counts the tests: what fails, crashes or is left out must show in its last line."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from project import PROJECT


def case(name, result="completed", failure=None, skip=None):
    status = "notrun" if result == "suppressed" else "run"
    inner = f"<failure message='{failure}'/>" if failure else ""
    inner += f"<skipped message='A.cpp:1&#10;{skip}'/>" if skip else ""
    return f"<testcase classname='Suite' name='{name}' status='{status}' result='{result}'>{inner}</testcase>"


def program(*cases, status=0):
    """A stand-in for a test program: writes the report it is asked for and ends with the status."""
    report = f"<testsuites><testsuite name='Suite'>{''.join(cases)}</testsuite></testsuites>"
    return f"""#!{sys.executable}
import sys
out = next(a.split("xml:", 1)[1] for a in sys.argv if a.startswith("--gtest_output="))
open(out, "w").write({report!r})
sys.exit({status})
"""


class Runner(unittest.TestCase):
    def run_on(self, **programs):
        """Runs the script in a project that has nothing but these programs. @return (exit status, last line)"""
        status, lines = self.lines_of(**programs)
        return status, lines[-1]

    def lines_of(self, **programs):
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
            # Whoever runs this may have named a folder of models.
            environment = {key: value for key, value in os.environ.items() if key != "REAL_MODELS"}
            done = subprocess.run([sys.executable, script, folder.parent], capture_output=True, text=True,
                                  env=environment)
        return done.returncode, done.stdout.splitlines()

    def test_counts_the_cases_of_all_programs(self):
        skipping = program(case("x"), case("y", "skipped", skip="no display"))
        self.assertEqual(self.run_on(a=skipping, b=program(case("z"))),
                         (0, "2 passed, 0 failed, 1 skipped"))

    def test_a_failed_case_fails_the_run(self):
        self.assertEqual(self.run_on(a=program(case("x"), case("y", failure="expected 1"), status=1)),
                         (1, "1 passed, 1 failed, 0 skipped"))

    def test_a_crash_counts_as_a_failure(self):
        crash = f"#!{sys.executable}\nimport os\nos.abort()\n"
        self.assertEqual(self.run_on(a=crash), (1, "0 passed, 1 failed, 0 skipped"))

    def test_a_bad_end_after_good_cases_counts_as_a_failure(self):
        self.assertEqual(self.run_on(a=program(case("x"), status=23)), (1, "1 passed, 1 failed, 0 skipped"))

    def test_cases_left_out_are_not_counted(self):
        self.assertEqual(self.run_on(a=program(case("x"), case("y", "suppressed"))),
                         (0, "1 passed, 0 failed, 0 skipped"))

    def test_what_was_skipped_is_listed_by_reason_and_name(self):
        _, lines = self.lines_of(
            a=program(case("z", "skipped", skip="no display"), case("y", "skipped", skip="no root")),
            b=program(case("x", "skipped", skip="no display"), case("DISABLED_w", "suppressed")))
        at = lines.index("skipped: no display")
        self.assertEqual(lines[at:at + 6], ["skipped: no display", "    Suite.x, Suite.z",
                                            "skipped: no reason given", "    Suite.DISABLED_w",
                                            "skipped: no root", "    Suite.y"])

    def test_that_there_are_no_real_models_is_said(self):
        _, lines = self.lines_of(a=program(case("x")))
        self.assertIn("REAL_MODELS", lines[-2])

    def test_a_run_without_any_test_fails(self):
        self.assertEqual(self.run_on(), (1, "0 passed, 0 failed, 0 skipped"))


if __name__ == "__main__":
    unittest.main()
