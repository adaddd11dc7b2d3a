"""Measures the shapes and prints a table of each."""

import tempfile
from pathlib import Path

from growth.measuring import measure
from growth.shapes import LEAST

EXPLANATION = """
Seconds of the processors (in brackets on the clock), the medians of the runs; what one of the things takes above the
cost of starting; and how it grows from the size before: n^1 where ten times the size takes ten times as long. asked^
is the same over the properties that the add-on asks for, where these are not as many as the column says. Bold is what
grows faster than n^1.10, and a single row that takes longer where there is more of everything: n^0.10. What takes less
than 5 ms has no exponent."""


def print_tables(shapes, program, work, largest, rounds):
    """@return whether everything was done as it should be"""
    print(EXPLANATION)
    works = list(dict.fromkeys(work for shape in shapes for work in shape.works()))
    with tempfile.TemporaryDirectory(dir=work) as name:
        folder = Path(name)
        start = measure({1: LEAST.case(program, folder, 1)}, works, max(rounds, 5), folder)
    return all([print_table(program, work, shape, start, largest, rounds) for shape in shapes]) and not start.reasons


def print_table(program, work, shape, start, largest, rounds):
    with tempfile.TemporaryDirectory(dir=work) as name:
        folder = Path(name)
        cases = {size: shape.case(program, folder, size) for size in shape.sizes if size <= largest}
        times = measure(cases, shape.works(), rounds, folder)
    print(f"\n{shape.title}\n\n| | " + " | ".join(f"{size:,}" for size in cases) + " |")
    print("|---|" + "---|" * len(cases))
    for line in shape.lines:
        print(f"| {line.title()} | " + " | ".join(line.cells(shape, cases, times, start)) + " |", flush=True)
    return not times.reasons

