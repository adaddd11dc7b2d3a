"""The updates of the samples folder meet every remark and every outcome that a user can meet."""

import tempfile
import unittest
from pathlib import Path

from modelhost import HOUSE, PROJECT, apply, lookup, modelhost

UPDATES = PROJECT / "samples/updates.txt"
WALL = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9"
NOT_FOUND, UNKNOWN, SAME = " Property not found.", " Element / Type not found.", " Old and new values are the same."
RED = [65535, 0, 0]

# Element, type, item, value in the model, new value, remarks, status, outcome of a row that is ticked.
ROWS = (
    ("Außenwand Süd", "Wall", "FireRating[WallCommon]", "F 90-AB", "F 120-AB", "", 0, "Done"),
    ("Außenwand Süd", "Wall", "InspectedOn[House_Survey]", "2023-10-04", "2024-05-17", "", 0, "Done"),
    ("Außenwand Süd", "Wall", "IsExternal[WallCommon]", "true", "true", SAME, 2, None),
    ("Außenwand Süd", "Wall", "Note[Handover]", "", "Riss über dem Küchenfenster, bis Juni 補修", NOT_FOUND, 0, "Done"),
    ("Außenwand Süd", "Wall", "UniFormat Classification", "B2010", "B2010.10{Exterior Wall Veneer}", "", 0, "Done"),
    ("Haustür", "Door", "Name", "Haustür", "Haustür (Eiche)", "", 0, "Done"),
    ("Haustür", "Door", "SmokeStop[DoorCommon]", "", "true", NOT_FOUND, 0, "Done"),
    ("Haustür", "Door", "SpecSection Classification", "08 14 00", "08 14 33{Stile and Rail Wood Doors}", "", 0, "Done"),
    ("103", "Zone", "LongName", "和室 (Gästezimmer)", "客間", "", 0, "Done"),
    ("Pendelleuchte", "Lamp", "TotalWattage[LightFixtureTypeCommon]", "12.000000", "9.5", "", 0, "Done"),
    ("Satteldach", "Roof", "Slope", "", "33", NOT_FOUND, 0, "error!"),
    ("", "Object", "Name", "", "Wärmepumpe", UNKNOWN, 2, None),
    ("Geschossdecke", "Slab", "PredefinedType", "FLOOR", "CEILING", "", 0, "error!"),
)


def shown(row):
    """A row without its tick and GUID."""
    columns = row["columns"]
    return (columns[1], columns[2], *columns[4:8], row["status"])


class SampleUpdates(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as folder:
            out = Path(folder) / "house.ifc"
            cls.answer = apply(HOUSE, UPDATES, out, expect=2)
            cls.after = lookup(out, [WALL])[WALL]

    def test_review_shows_every_remark(self):
        self.assertEqual([shown(row) for row in self.answer["review"]], [row[:7] for row in ROWS])

    def test_only_a_row_without_element_name_is_red(self):
        self.assertEqual([row["color"] for row in self.answer["review"]],
                         [RED if UNKNOWN in row[5] else None for row in ROWS])

    def test_apply_reports_each_ticked_row(self):
        for row, expected in zip(self.answer["result"], ROWS):
            with self.subTest(item=expected[2]):
                outcome = expected[7]
                self.assertEqual(outcome is None or outcome in row["columns"][7], True, row)
                self.assertEqual(row["status"], 0 if outcome == "error!" else 2)

    def test_summary_counts_lines_and_rows(self):
        summary = self.answer["summary"]
        self.assertEqual((summary["lines"], summary["rows"], summary["tickable"], summary["ticked"]), (14, 13, 11, 11))
        self.assertEqual((summary["done"], summary["errors"], summary["rowsLost"]), (9, 2, 0))

    def test_refusals_are_explained_in_the_report(self):
        report = "\n".join(self.answer["report"])
        self.assertIn("PredefinedType", report)
        self.assertIn("CEILING", report)

    def test_applied_values_are_in_the_saved_file(self):
        for row in (("FireRating[Pset_WallCommon]", "F 120-AB"),
                    ("Note[Pset_Handover]", "Riss über dem Küchenfenster, bis Juni 補修"),
                    ("UniFormat Classification", "B2010.10 {Exterior Wall Veneer}"),
                    ("InspectedOn[House_Survey]", "2024-05-17")):
            self.assertIn(row, self.after)


class LookupOfTheSample(unittest.TestCase):
    def test_the_wall_has_a_property_of_every_kind(self):
        rows = [tuple(row) for row in modelhost("lookup", HOUSE, WALL)["rows"]]
        for row in (("GUID", WALL), ("Type", "Wall"), ("Name", "Außenwand Süd"), ("PredefinedType", "SOLIDWALL"),
                    ("Layers[House_Survey]", "4"), ("Moisture[House_Survey]", "0.500000"),
                    ("Plumb[House_Survey]", "true"), ("Listed[House_Survey]", "unknown"),
                    ("Inspector[House_Survey]", "Jürgen Weiß"), ("Coats[House_Survey]", "???? List Value"),
                    ("MoistureRange[House_Survey]", "???? Bounded Value"),
                    ("Condition[House_Survey]", "???? Enum Value"),
                    ("Cracks[House_Survey]", "???? Table Value"), ("Mason[House_Survey]", ""),
                    ("Manufacturer[House_Product]", "Ziegelwerk Höß"),
                    ("SpecSection Classification", "04 21 13 {Brick Masonry}"),
                    ("UniFormat Classification", "B2010 {Exterior Walls}"), ("DIN 276", "331 {Tragende Außenwände}")):
            self.assertIn(row, rows)


if __name__ == "__main__":
    unittest.main()
