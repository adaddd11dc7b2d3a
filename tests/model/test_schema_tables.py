"""The committed schema tables are what their source gives."""

import os
import subprocess
import sys
import unittest
from pathlib import Path

PROJECT = Path(os.environ.get("PROJECT_DIR", Path(__file__).resolve().parents[2]))


class SchemaTables(unittest.TestCase):
    def test_committed_tables_follow_from_the_facts(self):
        done = subprocess.run([sys.executable, PROJECT / "scripts/make_schema_tables.py", "--check"],
                              capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stderr)


if __name__ == "__main__":
    unittest.main()
