#!/usr/bin/env python3
"""Writes samples/house.ifc. With --check: says whether the file is what this script makes.

usage: make_house.py [--check] [FILE]
"""

import difflib
import sys
from pathlib import Path

from house.data import DescribedHouse

HEADER = """\
ISO-10303-21;
/* A small house on two storeys, for trying things out. */
HEADER;
FILE_DESCRIPTION(('ViewDefinition [ReferenceView]'),'2;1');
FILE_NAME('house.ifc','2023-11-14T22:13:20',('K\\X2\\00E4\\X0\\the Sommer'),\
('B\\X2\\00FC\\X0\\ro f\\X2\\00FC\\X0\\r Baukunst'),\
'make_house.py','Sample house 1.0','');
FILE_SCHEMA(('IFC4'));
ENDSEC;

DATA;
"""
FOOTER = """\
ENDSEC;
END-ISO-10303-21;
"""


def main(arguments):
    check = "--check" in arguments
    files = [a for a in arguments if not a.startswith("-")]
    path = Path(files[0]) if files else Path(__file__).resolve().parent.parent / "samples" / "house.ifc"
    text = HEADER + "\n".join(DescribedHouse().data_section()) + "\n" + FOOTER
    if not check:
        path.write_text(text, encoding="ascii", newline="\n")
        return 0
    found = path.read_text(encoding="ascii") if path.exists() else ""
    if found == text:
        return 0
    difference = difflib.unified_diff(found.splitlines(), text.splitlines(), str(path), "make_house.py", lineterm="")
    print("\n".join(list(difference)[:20]))
    print(f"{path} is not what scripts/make_house.py makes; run it and commit the outcome")
    return 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
