"""Every header can be included first, and twice."""

import concurrent.futures
import os
import shutil
import subprocess
import unittest

from project import BINARIES, INCLUDE_ROOTS, PROJECT, Rules, files

CCACHE = ["ccache"] if shutil.which("ccache") else []


def qt_flags():
    found = subprocess.run(["pkg-config", "--cflags", "Qt6Widgets", "Qt6Test"], capture_output=True, text=True)
    return found.stdout.split() if found.returncode == 0 else None


def complaint(header, flags):
    # In the same place each time, and through ccache: only headers that changed are compiled again.
    source = BINARIES.parent / "headers" / f"{header.as_posix().replace('/', '-')}.cpp"
    source.parent.mkdir(exist_ok=True)
    source.write_text(f'#include "{PROJECT / header}"\n#include "{PROJECT / header}"\n', encoding="utf-8")
    roots = [f"-I{PROJECT / root}" for root in INCLUDE_ROOTS]
    command = [*CCACHE, "g++", "-std=c++20", "-fPIC", *roots, *flags, "-c", source, "-o", source.with_suffix(".o")]
    done = subprocess.run(command, capture_output=True, text=True)
    return f"{header}\n{done.stderr}" if done.returncode else ""


@unittest.skipUnless(shutil.which("g++"), "g++ is not installed")
class Headers(Rules):
    def test_each_compiles_alone(self):
        flags = qt_flags()
        headers = [h for h in files(".hpp") if flags is not None or not h.as_posix().startswith("host/desktop/")]
        self.assertTrue(headers)
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            self.expect_none(filter(None, pool.map(lambda header: complaint(header, flags or []), headers)))


if __name__ == "__main__":
    unittest.main()
