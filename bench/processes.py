"""Times whole processes."""

import os
import subprocess
import tempfile
import threading
import time
from dataclasses import dataclass

TIME_LIMIT = 600  # Seconds.
LONG = 10         # Seconds; what takes longer is run once.


@dataclass
class Figures:
    """Of one run: seconds on the clock, seconds of all processors (user and system), most memory in bytes."""
    wall: float
    processor: float
    peak: int


def run(command, stdout=subprocess.DEVNULL, **options):
    """@return Figures, or in a few words why there are none"""
    with tempfile.TemporaryFile() as errors:  # A pipe that nobody reads yet would stop who writes much.
        start = time.perf_counter()
        process = subprocess.Popen(command, stdout=stdout, stderr=errors, **options)
        late = threading.Event()
        timer = threading.Timer(TIME_LIMIT, lambda: (late.set(), process.kill()))
        timer.start()
        _, status, usage = os.wait4(process.pid, 0)
        wall = time.perf_counter() - start
        timer.cancel()
        process.returncode = os.waitstatus_to_exitcode(status)
        if late.is_set():
            return f"over {TIME_LIMIT} s"
        if process.returncode != 0:
            errors.seek(0)
            said = errors.read().decode(errors="replace").strip().splitlines()
            return "failed: " + (said[-1] if said else f"status {process.returncode}")[:60]
    return Figures(wall, usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024)
