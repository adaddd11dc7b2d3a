"""The lines of a shape's table."""

from dataclasses import dataclass
from typing import Callable

from growth.exponents import above, exponents, is_above
from growth.works import Work


@dataclass
class Total:
    """A whole work above the cost of starting. `asked`: how many properties the add-on asks for at a size, where that
    is another measure than the size."""
    work: Work
    asked: Callable = None
    limit = 1.1

    def works(self):
        return [self.work]

    def title(self):
        return self.work.name

    def cells(self, shape, cases, times, start):
        base = start.median((self.work.name, 1))
        keys = [(self.work.name, size) for size in cases]
        seconds = [above(times.median(key), base) for key in keys]
        over_size = growths("n", list(cases), seconds, self.limit)
        over_asked = growths("asked", [self.asked(size) for size in cases], seconds, self.limit) if self.asked else None
        for at, (size, key) in enumerate(zip(cases, keys)):
            if key in times.reasons:
                yield times.reasons[key]
                continue
            text = f"{duration(times.median(key))} ({duration(times.median(key, 'wall'))})"
            if seconds[at]:
                things, thing = self.things(shape, size, cases[size])
                text += f", {duration(seconds[at] / things)}/{thing}"
            yield text + over_size[at] + (over_asked[at] if over_asked else "")

    def things(self, shape, size, case):
        if self.work.is_about_rows:
            return self.work.rows(case), "row"
        return shape.things(size), shape.thing


@dataclass
class Further:
    """What one row more costs: the time above that of one row on the same model, by the rows."""
    work: Work
    one: Work
    limit = 0.1

    def works(self):
        return [self.one, self.work]

    def title(self):
        return f"{self.work.name}: each row behind the first"

    def cells(self, _, cases, times, __):
        rows = [self.work.rows(case) - 1 for case in cases.values()]
        spent = [above(times.median((self.work.name, size)), times.median((self.one.name, size))) for size in cases]
        each = [seconds / count if seconds else None for seconds, count in zip(spent, rows)]
        over_size = growths("n", list(cases), each, self.limit)
        for at, size in enumerate(cases):
            reason = times.reasons.get((self.work.name, size)) or times.reasons.get((self.one.name, size))
            yield reason or (duration(each[at]) + over_size[at] if each[at] else "")


def growths(base, sizes, seconds, limit):
    """The exponents as a table has them; of the first size there is none."""
    texts = [""]
    for exponent in exponents(sizes, seconds):
        text = "" if exponent is None else f"{base}^{exponent:.2f}"
        texts.append((f", **{text}**" if is_above(exponent, limit) else f", {text}") if text else "")
    return texts


def duration(seconds):
    """With three digits: 12.3 s, 1.23 ms, 123 µs, 0.12 µs."""
    for unit, size in (("s", 1), ("ms", 1e-3), ("µs", 1e-6)):
        if seconds >= size:
            break
    value = seconds / size
    return f"{value:.{2 if value < 10 else 1 if value < 100 else 0}f} {unit}"
