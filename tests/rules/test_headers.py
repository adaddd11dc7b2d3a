"""Every header can be included first.

A source that begins with its own header proves it each time it is compiled; the other headers are compiled here.
"""

import concurrent.futures
import os
import shutil
import subprocess
import unittest

from project import BINARIES, INCLUDE_ROOTS, PROJECT, Rules, files, includes, resolve

CCACHE = ["ccache"] if shutil.which("ccache") else []


def qt_flags():
    found = subprocess.run(["pkg-config", "--cflags", "Qt6Widgets", "Qt6Test"], capture_output=True, text=True)
    return found.stdout.split() if found.returncode == 0 else None


def complaint(header, flags):
    # Twice, for the guard. In the same place each time, and through ccache: only what changed is compiled again.
    source = BINARIES.parent / "headers" / f"{header.as_posix().replace('/', '-')}.cpp"
    source.parent.mkdir(exist_ok=True)
    source.write_text(f'#include "{PROJECT / header}"\n#include "{PROJECT / header}"\n', encoding="utf-8")
    roots = [f"-I{PROJECT / root}" for root in INCLUDE_ROOTS]
    command = [*CCACHE, "g++", "-std=c++20", "-fPIC", *roots, *flags, "-c", source, "-o", source.with_suffix(".o")]
    done = subprocess.run(command, capture_output=True, text=True)
    return f"{header}\n{done.stderr}" if done.returncode else ""


def proved_by_its_source(header):
    source = header.with_suffix(".cpp")
    if not (PROJECT / source).is_file():
        return False
    _, name, quoted = next(includes(source), (0, "", True))
    return resolve(source, name, quoted) == header


@unittest.skipUnless(shutil.which("g++"), "g++ is not installed")
class Headers(Rules):
    def test_each_compiles_alone(self):
        flags = qt_flags()
        headers = [header for header in files(".hpp") if not proved_by_its_source(header)
                   and (flags is not None or "desktop" not in header.parts)]
        self.assertTrue(headers)
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            self.expect_none(filter(None, pool.map(lambda header: complaint(header, flags or []), headers)))


if __name__ == "__main__":
    unittest.main()
