"""What modelhost is asked to do with a model, and whether it has done it."""

import json
from dataclasses import dataclass
from pathlib import Path
from typing import Callable

from growth import models

MOST_ROWS = 32767  # Of one list.


@dataclass
class Case:
    """A model that was made, and the rows for it: (number of the wall, item)."""
    program: str
    model: Path
    other: Path  # The same model with other values.
    walls: int
    rows: list

    def updates(self, rows, name):
        path = self.model.with_name(f"{self.model.stem}-{name}.txt")
        models.write_updates(path, rows)
        return path

    @property
    def out(self):
        return self.model.with_name("out.ifc")


@dataclass
class Run:
    """A command; `wrong` gets the file of its standard output and says what is wrong with it, or None."""
    command: list
    wrong: Callable


@dataclass(frozen=True)
class Work:
    """`prepare` makes the run for a case; `most_rows` of the case's rows are applied."""
    name: str
    prepare: Callable
    most_rows: int = 0

    @property
    def is_about_rows(self):
        return self.most_rows > 1

    def rows(self, case):
        return min(self.most_rows, len(case.rows))


def differs(what, found, expected):
    return None if found == expected else f"{found:,} {what} in place of {expected:,}"


def answer(path):
    return json.loads(Path(path).read_text(encoding="utf-8"))


def wrong_values(case, rows):
    """What was saved must hold the new value of each item."""
    with open(case.out, "rb") as lines:
        written = sum(line.count(b"'passed ") for line in lines)
    return differs("values written", written, len(set(rows)))


def opening(case):
    """No element is an IfcProject. The storey is an element, too."""
    return Run([case.program, "list", case.model, "--class", "IfcProject", "--format", "json"],
               lambda out: differs("elements", answer(out)["model"]["elements"], case.walls + 1))


def listing(case):
    return Run([case.program, "items", case.model, "--format", "json"],
               lambda out: differs("names", answer(out)["items"][0]["elements"], case.walls + 1))


def comparing(case):
    return Run([case.program, "diff", case.model, case.other, "--format", "json"],
               lambda out: differs("elements changed", answer(out)["summary"]["changed"], case.walls))


def importing(name, count=MOST_ROWS):
    def prepare(case):
        rows = case.rows[:count]
        updates = case.updates(rows, f"first-{len(rows)}")
        case.out.unlink(missing_ok=True)

        def wrong(out):
            return differs("rows done", answer(out)["summary"]["done"], len(rows)) or wrong_values(case, rows)
        return Run([case.program, "import", case.model, updates, "--apply", "-o", case.out, "--format", "json"], wrong)
    return Work(name, prepare, count)


def commanding(name, count):
    """Each row is reviewed and applied by itself, a step to undo."""
    def prepare(case):
        rows = case.rows[:count]
        steps = []
        for number, row in enumerate(rows):
            updates = case.updates([row], f"row-{number}")
            steps += [{"menu": 1}, {"file": str(updates)}, {"click": 3}, {"click": 1}, {"click": 2}]
        script = case.model.with_name(f"{case.model.stem}-{len(rows)}.jsonl")
        script.write_text("".join(json.dumps(step) + "\n" for step in [*steps, {"save": str(case.out)}]))
        case.out.unlink(missing_ok=True)
        return Run([case.program, "script", case.model, script], lambda _: wrong_values(case, rows))
    return Work(name, prepare, count)


OPEN = Work("open", opening)
ITEMS = Work("list all items", listing)
DIFF = Work("compare with other values", comparing)
IMPORT = importing("import, save")
IMPORT_ONE = importing("import 1 row, save", 1)
COMMANDS = commanding("script of 1,000 imports of 1 row", 1000)
COMMAND_ONE = commanding("script of 1 import of 1 row", 1)
