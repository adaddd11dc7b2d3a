"""What has to be reached of the sources by all of the tests: at the least share it is enough, below it is not."""

import contextlib
import importlib.util
import io
import json
import tempfile
import unittest
from pathlib import Path

from project import PROJECT

spec = importlib.util.spec_from_file_location("coverage_by_folder", PROJECT / "scripts/coverage_by_folder.py")
coverage_by_folder = importlib.util.module_from_spec(spec)
spec.loader.exec_module(coverage_by_folder)


def counted(name, covered, total):
    return {"filename": name, "line_covered": covered, "line_total": total, "branch_covered": 0, "branch_total": 0}


class Coverage(unittest.TestCase):
    def run_on(self, held="--whole", **changed):
        """(exit status, what was said of shortfalls) of counts that are just enough, but for those changed."""
        files = {"addon": counted("Src/A.cpp", 10, 10), "binding": counted("binding/B.cpp", 5, 5),
                 "model": counted("host/model/step/C.cpp", 970, 1000),
                 "services": counted("host/services/D.cpp", 97, 100), "other": counted("host/models/E.cpp", 0, 100)}
        files.update(changed)
        with tempfile.TemporaryDirectory() as folder:
            summary = Path(folder) / "summary.json"
            summary.write_text(json.dumps({"files": list(files.values())}), encoding="utf-8")
            said = io.StringIO()
            with contextlib.redirect_stderr(said), contextlib.redirect_stdout(io.StringIO()):
                status = coverage_by_folder.main(summary, held)
        return status, said.getvalue()

    def test_the_least_share_is_enough(self):
        self.assertEqual(self.run_on(), (0, ""))
        self.assertEqual(self.run_on(model=counted("host/model/step/C.cpp", 971, 1000))[0], 0)

    def test_a_line_less_is_not(self):
        status, said = self.run_on(model=counted("host/model/step/C.cpp", 969, 1000))
        self.assertEqual(status, 1)
        self.assertEqual(said, "host/model: 31 of 1000 lines are not reached, 96.90 % are, and it has to be 97 %\n")
        self.assertEqual(self.run_on(addon=counted("Src/A.cpp", 9, 10))[0], 1)

    def test_a_folder_that_was_not_counted_is_not(self):
        self.assertEqual(self.run_on(binding=counted("elsewhere/B.cpp", 5, 5)), (1, "binding: no line was counted\n"))

    def test_what_fuzzing_begins_with_is_held_to_less(self):
        for covered, status in ((950, 0), (949, 1), (951, 0)):
            self.assertEqual(self.run_on("--seeds", model=counted("host/model/A.cpp", covered, 1000))[0], status)
        self.assertEqual(self.run_on("--seeds", addon=counted("Src/A.cpp", 0, 10))[0], 0)

    def test_some_of_the_tests_are_held_to_nothing(self):
        self.assertEqual(self.run_on(held=None, addon=counted("Src/A.cpp", 1, 10)), (0, ""))


if __name__ == "__main__":
    unittest.main()
