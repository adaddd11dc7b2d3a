"""The round trip again, read with ifcopenshell, which shares no code and no author with this project."""

import tempfile
import unittest
from collections import Counter
from pathlib import Path

from modelhost import HOUSE, apply, elements, lookup, models, write_updates
from trial import UNIFORMAT, trial_updates

try:
    import ifcopenshell
    from reader import Snapshot
except ImportError:
    ifcopenshell = None


def set_property(entries, inherited, item, value):
    """What an update does to an element's own properties; `inherited` are those of its type."""
    for index, (set_name, name, kind, _) in enumerate(entries):
        if name == item:
            entries[index] = (set_name, name, kind, value)
            return
    set_name, name, kind, _ = next(entry for entry in inherited if entry[1] == item)
    entries.append((set_name, name, kind, value))


def expect(snapshot, types, guid, item, value):
    """Does to the snapshot what the update must do to the file, and nothing more."""
    element = snapshot.element(guid)
    if item == UNIFORMAT:
        code, name = value[:-1].split("{")
        kept = [entry for entry in snapshot.classifications[element] if entry[0] != item]
        old = next((entry for entry in snapshot.classifications[element] if entry[0] == item), None)
        snapshot.classifications[element] = [*kept, (item, code, name, old[3] if old else None)]
    elif item == "Trial[Handover]":
        snapshot.properties[element].append(("Pset_Handover", "Trial", "IfcLabel", value))
    elif item in snapshot.attributes[element]:
        snapshot.attributes[element][item] = value
    else:
        own_type = types.get(element)
        new = float(value) if value.startswith("0.6") else value
        set_property(snapshot.properties[element], snapshot.properties[own_type] if own_type else [], item, new)


def types_of(file):
    return {thing.id(): relation.RelatingType.id() for relation in file.by_type("IfcRelDefinesByType")
            for thing in relation.RelatedObjects}


def without_new_source(entries):
    """A new reference's classification is this program's choice, so only an old one's is compared."""
    return Counter(entry[:3] for entry in entries)


@unittest.skipIf(ifcopenshell is None, "ifcopenshell is not installed; scripts/independent-reader does it")
class IndependentReader(unittest.TestCase):
    def test_updates_read_back_and_nothing_else_changes(self):
        for model in models():
            with self.subTest(model=model.name), tempfile.TemporaryDirectory() as folder:
                self.round_trip(model, Path(folder))

    def round_trip(self, model, folder):
        updates = trial_updates(lookup(model, [e["guid"] for e in elements(model) if e["name"]]))
        write_updates(folder / "updates.txt", updates)
        answer = apply(model, folder / "updates.txt", folder / "out.ifc")
        self.assertEqual(answer["summary"]["done"], len(updates))

        expected, found = Snapshot(model), Snapshot(folder / "out.ifc")
        types = types_of(expected.file)
        for update in updates:
            expect(expected, types, *update)
        self.assertEqual(set(found.attributes), set(expected.attributes))
        for number, attributes in expected.attributes.items():
            self.assertEqual(found.attributes[number], attributes)
            self.assertEqual(Counter(found.properties[number]), Counter(expected.properties[number]), attributes)
            self.assertEqual(without_new_source(found.classifications[number]),
                             without_new_source(expected.classifications[number]), attributes)

    def test_an_updated_sample_is_still_valid(self):
        import ifcopenshell.validate
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            write_updates(folder / "updates.txt",
                          trial_updates(lookup(HOUSE, [e["guid"] for e in elements(HOUSE) if e["name"]])))
            apply(HOUSE, folder / "updates.txt", folder / "out.ifc")
            for path in (HOUSE, folder / "out.ifc"):
                log = ifcopenshell.validate.json_logger()
                ifcopenshell.validate.validate(ifcopenshell.open(str(path)), log)
                self.assertEqual([entry["message"] for entry in log.statements], [])


if __name__ == "__main__":
    unittest.main()
