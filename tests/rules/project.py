"""The project's files and their include lines, for the rules."""

import os
import re
import subprocess
import unittest
from pathlib import Path

PROJECT = Path(os.environ.get("PROJECT_DIR") or Path(__file__).resolve().parents[2])
BINARIES = Path(os.environ.get("BINARY_DIR") or PROJECT / "build/release/bin")
INCLUDE_ROOTS = ("host/include", "host", "Src", "binding", "tests")


class Rules(unittest.TestCase):
    def expect_none(self, complaints):
        found = [str(complaint) for complaint in complaints]
        if found:
            self.fail("\n".join(found))


def files(*suffixes):
    """Tracked files and new ones that are not ignored, as paths from the project's folder."""
    listed = subprocess.run(["git", "-C", PROJECT, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            check=True, capture_output=True, text=True).stdout.split("\0")
    return sorted({Path(name) for name in listed if name.endswith(suffixes or "") and (PROJECT / name).is_file()})


def sources(*folders):
    return [path for path in files(".hpp", ".cpp", ".h", ".def") if path.as_posix().startswith(folders)]


def read(path):
    return (PROJECT / path).read_text(encoding="utf-8")


def includes(path):
    """(line number, name, quoted) of each include line."""
    for number, line in enumerate(read(path).splitlines(), 1):
        match = re.match(r'\s*#\s*include\s*([<"])([^>"]+)[>"]', line)
        if match:
            yield number, match[2], match[1] == '"'


def resolve(path, name, quoted):
    """The project's own file that an include line means; None for a foreign one."""
    roots = ([path.parent.as_posix()] if quoted else []) + list(INCLUDE_ROOTS)
    for root in roots:
        candidate = Path(os.path.normpath(Path(root) / name))
        if (PROJECT / candidate).is_file():
            return candidate
    return None
