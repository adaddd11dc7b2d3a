"""Many updates on many elements of each model: what was asked for is there afterwards, and nothing else has changed.

Written with modelhost and read back with modelhost; test_independent_reader.py reads the same with another program.
"""

import tempfile
import unittest
from collections import Counter
from pathlib import Path

from exchange import Difference
from modelhost import apply, elements, lookup, models, write_updates
from trial import UNIFORMAT, trial_updates


def expected_rows(rows, updates):
    """An element's lookup after the updates, apart from the order of its rows."""
    rows = list(rows)
    for _, item, value in updates:
        if item == UNIFORMAT:
            rows = [row for row in rows if row[0] != item] + [(item, value.replace("{", " {"))]
        elif "[" in item:
            rows.append((item.replace("[", "[Pset_"), value))
        else:
            place = next(i for i, (name, _) in enumerate(rows) if name.split("[")[0] == item)
            rows[place] = (rows[place][0], value)
    return Counter(rows)


class RoundTrip(unittest.TestCase):
    def test_updates_read_back_and_nothing_else_changes(self):
        for model in models():
            with self.subTest(model=model.name), tempfile.TemporaryDirectory() as folder:
                self.round_trip(model, Path(folder))

    def round_trip(self, model, folder):
        guids = [element["guid"] for element in elements(model) if element["name"]]
        before = lookup(model, guids)
        updates = trial_updates(before)
        self.assertGreater(len(updates), len(before) // 2)
        write_updates(folder / "updates.txt", updates)
        answer = apply(model, folder / "updates.txt", folder / "out.ifc")
        self.assertEqual((answer["summary"]["done"], answer["summary"]["errors"]), (len(updates), 0), answer["report"])

        after = lookup(folder / "out.ifc", guids)
        for guid in guids:
            asked = [update for update in updates if update[0] == guid]
            self.assertEqual(Counter(after[guid]), expected_rows(before[guid], asked), f"{guid} {asked}")
        self.compare_files(model.read_bytes(), (folder / "out.ifc").read_bytes())

    def compare_files(self, before, after):
        difference = Difference(before, after)
        self.assertEqual(difference.lost, set())
        self.assertTrue(difference.frame_kept, "header, comments or section ends differ")
        self.assertTrue(difference.order_kept, "instances have moved")
        self.assertTrue(difference.changed)
        self.assertEqual(difference.beyond_updates, [])
        self.assertGreater(min(difference.added), difference.highest_before)

    def test_the_same_updates_give_the_same_bytes(self):
        model = models()[0]
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            guids = [element["guid"] for element in elements(model) if element["name"]]
            write_updates(folder / "updates.txt", trial_updates(lookup(model, guids)))
            for out in ("one.ifc", "two.ifc"):
                apply(model, folder / "updates.txt", folder / out)
            self.assertEqual((folder / "one.ifc").read_bytes(), (folder / "two.ifc").read_bytes())

    def test_a_second_round_finds_every_value_in_place(self):
        model = models()[0]
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            guids = [element["guid"] for element in elements(model) if element["name"]]
            write_updates(folder / "updates.txt", trial_updates(lookup(model, guids)))
            apply(model, folder / "updates.txt", folder / "out.ifc")
            again = apply(folder / "out.ifc", folder / "updates.txt", folder / "again.ifc")
            self.assertEqual(again["summary"]["tickable"], 0)
            self.assertEqual({row["columns"][7] for row in again["review"]}, {" Old and new values are the same."})


if __name__ == "__main__":
    unittest.main()
