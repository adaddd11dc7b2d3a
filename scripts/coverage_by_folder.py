#!/usr/bin/env python3
"""Prints gcovr's JSON summary as a table by folder, and the sources of each folder that are reached least.

usage: coverage_by_folder.py SUMMARY.json
"""

import collections
import json
import os
import sys

KINDS = ("line", "branch")


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


def main(path):
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
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
