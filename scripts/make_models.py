#!/usr/bin/env python3
"""Writes the models that the tests use beside the sample: the sample house in other versions of IFC, in the layouts of
other programs, with more or less of it shared, and many of it in one file.

usage: make_models.py FOLDER
"""

import sys
from pathlib import Path

from house import layouts
from house.data import DescribedHouse
from house.schemas import TranslatedHouse
from house.sharing import OneByOne, SetsOfSets
from make_house import FOOTER, HEADER


def model(house, schema="IFC4", houses=1):
    return HEADER.replace("'IFC4'", f"'{schema}'") + "\n".join(house.data_section(houses)) + "\n" + FOOTER


def models():
    """Name -> text."""
    older, newer = model(TranslatedHouse("IFC2X3"), "IFC2X3"), model(TranslatedHouse("IFC4X3"), "IFC4X3_ADD2")
    return {
        "ifc2x3": older,
        "ifc4x3": newer,
        "spaced-ifc4": layouts.spaced(model(DescribedHouse())),
        "spaced-latin-ifc2x3": layouts.latin(layouts.spaced(older)),
        "wrapped-ifc4x3": layouts.wrapped(newer),
        "wrapped-shifted-ifc2x3": layouts.shifted(layouts.wrapped(older)),
        "packed-ifc4": layouts.packed(model(DescribedHouse())),
        "one-by-one-ifc4": model(OneByOne()),
        "sets-of-sets-ifc4": model(SetsOfSets()),
        "street-ifc4": model(DescribedHouse(), houses=25),
    }


def main(folder):
    folder.mkdir(parents=True, exist_ok=True)
    for name, text in models().items():
        (folder / f"{name}.ifc").write_text(text, encoding="ascii", newline="")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    main(Path(sys.argv[1]))
