#!/usr/bin/env python3
"""Prints gcovr's JSON summary as a table by folder.

usage: coverage_by_folder.py SUMMARY.json [--whole | --seeds]

  --whole   of all the tests, --seeds of what the fuzz targets begin with: the exit status is 1, with what is missing,
            where a folder is reached less than it has to be by these
"""

import collections
import json
import os
import sys

KINDS = ("line", "branch")
# Of all in a folder and below it, in per cent. The add-on's sources name by a comment what nothing can reach.
LEAST = {
    "--whole": (("Src", "line", 100), ("binding", "line", 100), ("host/model", "line", 97),
                ("host/services", "line", 97)),
    "--seeds": (("host/model", "line", 95),),
}


def percent(covered, total):
    return f"{100 * covered / total:6.1f} %" if total else "       -"


def by_folder(files):
    """{folder: {"line_covered": ..., "line_total": ..., ...}}, and the sum of all as "in all"."""
    sums = collections.defaultdict(collections.Counter)
    for file in files:
        counts = {f"{kind}_{what}": file[f"{kind}_{what}"] for kind in KINDS for what in ("covered", "total")}
        for folder in (os.path.dirname(file["filename"]), "in all"):
            sums[folder].update(counts)
    return sums


def shortfalls(files, least_of):
    """A sentence for each folder that is reached less than it has to be."""
    found = []
    for folder, kind, least in least_of:
        below = [file for file in files if file["filename"].startswith(folder + "/")]
        covered, total = (sum(file[f"{kind}_{what}"] for file in below) for what in ("covered", "total"))
        if total == 0:
            found.append(f"{folder}: no {kind} was counted")
        elif 100 * covered < least * total:
            found.append(f"{folder}: {total - covered} of {total} {kind}s are not reached, "
                         f"{100 * covered / total:.2f} % are, and it has to be {least} %")
    return found


def main(path, held=None):
    with open(path, encoding="utf-8") as summary:
        files = json.load(summary)["files"]
    if not files:
        print("gcovr found no source; has a test program run?", file=sys.stderr)
        return 1
    sums = by_folder(files)
    print(f"{'Folder':<32} {'Lines':>7} {'Reached':>9} {'Branches':>9} {'Reached':>9}")
    for folder in sorted(sums, key=lambda name: (name == "in all", name)):
        counts = sums[folder]
        cells = [f"{counts[f'{kind}_total']:>{width}} {percent(counts[f'{kind}_covered'], counts[f'{kind}_total']):>9}"
                 for kind, width in zip(KINDS, (7, 9))]
        print(f"{folder:<32} {' '.join(cells)}")
    missing = shortfalls(files, LEAST[held]) if held else []
    for sentence in missing:
        print(sentence, file=sys.stderr)
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:3]))
