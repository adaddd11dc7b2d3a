"""How times grow with a size."""

import math

LEAST = 0.005  # Seconds; of less, what else the machine does would be a good part.


def above(seconds, base):
    """What is left without the base; None where that is too short to say anything, or was not measured."""
    if seconds is None or base is None or seconds - base < LEAST:
        return None
    return seconds - base


def exponents(sizes, seconds):
    """The slopes between neighbours on paper with two logarithmic scales: 1 where twice the size takes twice the time,
    2 where it takes four times. One for each step but the first; None beside a time that is not there."""
    steps = zip(sizes, sizes[1:], seconds, seconds[1:])
    return [math.log(after / before) / math.log(large / small) if before and after else None
            for small, large, before, after in steps]


def is_above(exponent, limit):
    """As a reader of two decimals sees it."""
    return exponent is not None and round(exponent, 2) > limit
