"""Updates for a model that nobody knows: chosen from what a lookup of its elements shows."""

import re
from collections import Counter

# What a writer of exchange files can get wrong: apostrophe, backslash, letters beyond ASCII, beyond Latin, beyond 16
# bits.
TEXT = "Prüfung 'neu' \\ 試験 𝒳"
UNIFORMAT = "UniFormat Classification"
NOT_A_TEXT = re.compile(r"$|true$|false$|unknown$|\?\?\?\? |[-+]?[\d.,]+$|.*\}$")
REAL = re.compile(r"-?\d+\.\d{6}$")


def bare(name):
    return name.split("[")[0]


def sole_properties(rows, wanted):
    """Names of properties that nothing else on the element bears, and whose value is wanted."""
    counts = Counter(bare(name) for name, _ in rows)
    return [bare(name) for name, value in rows
            if name.count("[") == 1 and name.endswith("]") and counts[bare(name)] == 1 and wanted(value)]


def trial_updates(before):
    """@param before  GUID -> lookup rows. @return (GUID, item, new value): attributes, properties of an element's own
    and of its type, new properties and classifications, each on another choice of elements."""
    updates = []
    for index, (guid, rows) in enumerate(before.items()):
        names = {name for name, _ in rows}
        texts = sole_properties(rows, lambda value: not NOT_A_TEXT.match(value))
        reals = sole_properties(rows, REAL.match)
        if index % 4 == 0:
            updates.append((guid, "Name", f"{TEXT} {index}"))
        if index % 4 == 1 and "Description" in names:
            updates.append((guid, "Description", f"{TEXT} {index}"))
        if index % 2 == 0 and texts:
            updates.append((guid, texts[index % len(texts)], f"{TEXT} {index}"))
        if index % 3 == 0 and reals:
            updates.append((guid, reals[index % len(reals)], "0.625000"))
        if index % 5 == 0 and "Trial[Pset_Handover]" not in names:
            updates.append((guid, "Trial[Handover]", f"{TEXT} {index}"))
        if index % 6 == 0:
            updates.append((guid, UNIFORMAT, f"B2010.{index}{{{TEXT}}}"))
    return updates
