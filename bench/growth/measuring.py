"""Runs works on cases by turns."""

import statistics
import subprocess
import sys

import processes

LARGE = 8_000_000  # Bytes of a model that is more than what a processor keeps of it from the run before.
TOUCH = "import sys; b = bytearray(int(sys.argv[1])); b[::4096] = bytes(len(b[::4096]))"


class Times:
    """Seconds by key: of the processors and on the clock, the medians of the runs."""

    def __init__(self):
        self.figures, self.reasons = {}, {}

    def note(self, key, figures):
        if isinstance(figures, str):
            self.reasons[key] = figures
        else:
            self.figures.setdefault(key, []).append(figures)

    def is_wanted(self, key):
        """What failed is not tried again, what takes long is run once."""
        known = self.figures.get(key)
        return key not in self.reasons and (not known or known[0].wall < processes.LONG)

    def median(self, key, clock="processor"):
        """None where it was not run, or not well each time."""
        if key in self.reasons or key not in self.figures:
            return None
        return statistics.median(getattr(figures, clock) for figures in self.figures[key])


def measure(cases, works, rounds, folder):
    """By turns, so that whatever else the machine does meets all alike.
    @param cases  by their sizes
    @return Times, the keys being (work's name, size)"""
    times = Times()
    for _ in range(rounds):
        for size, case in cases.items():
            for work in works:
                if times.is_wanted((work.name, size)):
                    prepared = work.prepare(case)
                    warm_up(case.model)
                    times.note((work.name, size), run(prepared, folder / "answer"))
    return times


def warm_up(model):
    """A virtual machine may take back memory that nobody uses, and reading the disk takes its time: the opening of a
    large model is not to pay for either."""
    size = model.stat().st_size
    if size > LARGE:
        with open(model, "rb") as file:
            while file.read(1 << 24):
                pass
        subprocess.run([sys.executable, "-c", TOUCH, str(3 * size)], check=True)


def run(prepared, answer):
    """@return processes.Figures, or the reason why there are none: what was not done well is not called fast"""
    with open(answer, "wb") as out:
        figures = processes.run(prepared.command, stdout=out)
    if isinstance(figures, str):
        return figures
    try:
        return prepared.wrong(answer) or figures
    except (ValueError, LookupError, OSError):  # Not JSON, not the answer's members, no file that was saved.
        return "no answer"
