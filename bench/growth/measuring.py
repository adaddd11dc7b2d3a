"""Runs works on cases by turns."""

import statistics

import processes


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
                    times.note((work.name, size), run(work.prepare(case), folder / "answer"))
    return times


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
