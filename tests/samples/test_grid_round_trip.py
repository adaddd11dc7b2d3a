"""Grids out and back: unchanged they change nothing, and edited cells are exactly what differs in the model.

GRID_ROUND_TRIPS says how many random trips each model and format gets; one by default.
"""

import csv
import io
import os
import random
import re
import tempfile
import unittest
import zipfile
from collections import Counter
from pathlib import Path
from xml.sax.saxutils import escape

from modelhost import HOUSE, elements, lookup, modelhost, models

try:
    import ifcopenshell
    from reader import Snapshot
except ImportError:
    ifcopenshell = None

TRIPS = int(os.environ.get("GRID_ROUND_TRIPS", "1"))
CELL = re.compile(r'<c r="([A-Z]+)(\d+)"([^>]*?)(?:/>|>.*?</c>)', re.DOTALL)
READERS_COLUMNS = 5  # GUID, #Storey, #Class, #Type, #Name


def items_of(model):
    """item -> its kind and type, of what an update can change.

    A name in several sets is left out: the import shows the last of these properties and writes the first.
    """
    found = modelhost("items", model)["items"]
    bare = Counter(entry["item"].split("[")[0] for entry in found)
    return {entry["item"]: entry for entry in found if entry["changeable"] and bare[entry["item"].split("[")[0]] == 1}


def grid(model, items):
    """(columns, GUID -> the cells of its line)"""
    named = [argument for item in items for argument in ("--item", item)]
    answer = modelhost("export", model, *named, "--layout", "grid")
    return answer["columns"], {row[0]: row for row in answer["rows"]}


def new_text(entry, held, chance):
    """A text that the item can hold and that is not what it holds; nothing where there is none to be sure of."""
    number = chance.randrange(2, 100000)
    kind = entry["valueType"]
    if entry["kind"] == "classification":
        return f"C{number}{{Title {number}}}"
    if kind == "IfcBoolean":
        return "false" if held == "true" else "true"
    if kind == "IfcLogical":
        return chance.choice([text for text in ("true", "false", "unknown") if text != held])
    if kind in ("IfcInteger", "IfcCountMeasure"):
        return str(number)
    if kind in ("IfcReal", "IfcLengthMeasure", "IfcPositiveLengthMeasure"):
        return f"{number}.25"
    if kind in ("IfcLabel", "IfcText", "IfcIdentifier"):
        return chance.choice([f"Räume {number}", f'12" pipe, {number}; "x"', f"007{number}", f"=A{number}"])
    return None


def as_typed(text):
    """As new_text() gives it. Reals of properties are shown with six decimals."""
    return re.sub(r"^(\d+)(?:\.000000|(\.25)0000)$", lambda match: match[1] + (match[2] or ""), text)


def with_cell(sheet, column, row, text):
    """The sheet's XML with one cell replaced by a text."""
    def put(match):
        if match[1] != column or int(match[2]) != row:
            return match[0]
        style = re.search(r' s="\d+"', match[3])
        return f'<c r="{column}{row}"{style[0] if style else ""} t="inlineStr"><is><t>{escape(text)}</t></is></c>'
    edited = CELL.sub(put, sheet)
    assert edited != sheet, f"the sheet has no cell {column}{row}"
    return edited


class Exported:
    """An exported file whose cells can be edited as a person does in a spreadsheet."""

    def __init__(self, path):
        self.path = path

    def edit(self, cells):
        """@param cells  (line from 0 below the header, column from 0) -> text"""
        if self.path.suffix == ".xlsx":
            return self.edit_workbook(cells)
        delimiter = "\t" if self.path.suffix == ".tsv" else ","
        text = self.path.read_bytes().decode("utf-8-sig")
        rows = list(csv.reader(io.StringIO(text, newline=""), delimiter=delimiter))
        for (line, column), text in cells.items():
            rows[line + 1][column] = text
        out = io.StringIO()
        csv.writer(out, delimiter=delimiter).writerows(rows)
        self.path.write_bytes(out.getvalue().encode())

    def edit_workbook(self, cells):
        with zipfile.ZipFile(self.path) as archive:
            parts = {name: archive.read(name) for name in archive.namelist()}
        sheet = parts["xl/worksheets/sheet1.xml"].decode()
        for (line, column), text in cells.items():
            sheet = with_cell(sheet, chr(ord("A") + column), line + 2, text)
        parts["xl/worksheets/sheet1.xml"] = sheet.encode()
        with zipfile.ZipFile(self.path, "w", zipfile.ZIP_DEFLATED) as archive:
            for name, content in parts.items():
                archive.writestr(name, content)


class GridRoundTrip(unittest.TestCase):
    maxDiff = None

    def test_cells_that_were_edited_are_what_differs_in_the_model(self):
        for model in models():
            items = items_of(model)
            for ending in ("csv", "tsv", "xlsx"):
                for trip in range(TRIPS):
                    seed = f"{model.name} {ending} {trip}"
                    with self.subTest(seed), tempfile.TemporaryDirectory() as folder:
                        self.trip(model, items, ending, random.Random(seed), Path(folder))

    def export(self, model, chosen, path):
        named = [argument for item in chosen for argument in ("--item", item)]
        modelhost("export", model, *named, "-o", path)

    def trip(self, model, items, ending, chance, folder):
        chosen = chance.sample(sorted(items), min(6, len(items)))
        table, out = folder / f"table.{ending}", folder / "out.ifc"
        self.export(model, chosen, table)

        unchanged = modelhost("import", model, table, "--apply", "-o", out)
        self.assertEqual((unchanged["summary"]["rows"], unchanged["table"]["updates"]), (0, 0), chosen)
        self.assertEqual(model.read_bytes(), out.read_bytes())

        columns, before = grid(model, chosen)
        guids = list(before)
        wanted = self.random_edits(columns, before, items, chance)
        if not wanted:
            return
        Exported(table).edit({(guids.index(guid), column): text for (guid, column), text in wanted.items()})
        answer = modelhost("import", model, table, "--apply", "--exact", "-o", out)
        self.assertEqual(answer["table"]["updates"], len(wanted), answer["table"])
        self.assertEqual(answer["summary"]["notAsAsked"], 0,
                         [row for row in answer["result"] if row["asAsked"] is False])
        _, after = grid(out, chosen)
        differing = {(guid, column): as_typed(after[guid][column]) for guid in guids for column in range(len(columns))
                     if after[guid][column] != before[guid][column] and not columns[column].startswith("#")}
        self.assertEqual(differing, wanted)
        self.nothing_else_differs(model, out, wanted)

    def random_edits(self, columns, before, items, chance):
        """(GUID, column) -> text. Only cells that hold something: what an empty one would add has no type yet."""
        cells = [(guid, column) for guid, row in before.items() for column in range(READERS_COLUMNS, len(columns))
                 if row[column]]
        edits = {}
        for guid, column in chance.sample(cells, min(chance.randrange(1, 12), len(cells))):
            text = new_text(items[columns[column]], before[guid][column], chance)
            if text is not None and text != before[guid][column]:
                edits[guid, column] = text
        return edits

    def nothing_else_differs(self, model, out, wanted):
        guids = [element["guid"] for element in elements(model)]
        before, after = lookup(model, guids), lookup(out, guids)
        for guid in guids:
            asked = sum(edited == guid for edited, _ in wanted)
            gone = Counter(before[guid]) - Counter(after[guid])
            self.assertLessEqual(sum(gone.values()), asked + self.named_by_type(gone), f"{guid}: {gone}")

    def named_by_type(self, gone):
        """An element's Name is shown twice in its look-up."""
        return sum(name == "Name" for name, _ in gone) and 1


@unittest.skipIf(ifcopenshell is None, "ifcopenshell is not installed; scripts/independent-reader does it")
class GridReadIndependently(unittest.TestCase):
    def test_an_edited_cell_of_a_workbook_is_what_differs(self):
        with tempfile.TemporaryDirectory() as name:
            table, out = Path(name) / "table.xlsx", Path(name) / "out.ifc"
            modelhost("export", HOUSE, "--item", "FireRating[WallCommon]", "-o", table)
            _, rows = grid(HOUSE, ["FireRating[WallCommon]"])
            guids = list(rows)
            guid = next(guid for guid in guids if rows[guid][READERS_COLUMNS] == "F 30-B")
            Exported(table).edit({(guids.index(guid), READERS_COLUMNS): "F 120"})
            modelhost("import", HOUSE, table, "--apply", "-o", out)
            before, after = Snapshot(HOUSE), Snapshot(out)
            element = before.element(guid)
            self.assertIn(("Pset_WallCommon", "FireRating", "IfcLabel", "F 120"), after.properties[element])
            self.assertEqual(before.attributes, after.attributes)
            others = [thing for thing in before.properties if thing != element]
            for thing in others:
                self.assertEqual(Counter(before.properties[thing]), Counter(after.properties[thing]))


if __name__ == "__main__":
    unittest.main()
