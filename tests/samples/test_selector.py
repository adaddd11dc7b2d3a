"""--where beside ifcopenshell's selector, whose syntax it is: both choose the same elements.

Where the two part on purpose, docs/command-line.md says so: a class or GUID counts wherever it stands in a group; NULL
of a material, classification or location asks whether there is none; != and *= of these and of a type are what they are
elsewhere; an expression has to match the whole text.
"""

import random
import unittest
from collections import Counter

from modelhost import HOUSE, elements, modelhost, models

try:
    import ifcopenshell
    import ifcopenshell.util.element as util
    from ifcopenshell.util.selector import filter_elements
except ImportError:
    ifcopenshell = None

READ_OTHERWISE = {"packed-ifc4.ifc"}  # It has .t. and .f. in small letters, which ifcopenshell takes for no values.

FIXED = [
    "IfcWall", "IfcElement, !IfcWall", "IfcDoor, IfcWindow", "IfcDoor + IfcWindow", "IfcSpatialStructureElement",
    "IfcElement, Name=/.*[aeiou]$/", "IfcElement, Name!=/.*[aeiou]$/", "Name*=a", "Name!*=a", "Name=NULL", "Name!=NULL",
    "IfcWall, Tag=NULL", "PredefinedType=NOTDEFINED", "IfcProduct, PredefinedType!=NULL", "ObjectType=NULL",
    "OverallWidth>0.9", "OverallWidth>=1", "OverallHeight<2.1", "OverallHeight<=2.1", "IfcDoor, OverallWidth=0.885",
    "Representation=NULL", "IfcElement, Description!=NULL", "LongName!=NULL", "Elevation>0", "Elevation=0",
    "Pset_WallCommon.IsExternal=TRUE", "Pset_WallCommon.IsExternal!=TRUE", "Pset_WallCommon.IsExternal=FALSE",
    "Pset_WallCommon.IsExternal=NULL", "IfcWall, Pset_WallCommon.FireRating=NULL", "/Pset_.*/.FireRating!=NULL",
    "IfcDoor, /Pset_.*/.FireRating=NULL", "Pset_WallCommon./Is.*/=TRUE", "/Pset_.*Common/./Is.*/=TRUE",
    "/.*Common/.Reference!=NULL", "/.*/.ThermalTransmittance>0.2", "/.*/.ThermalTransmittance<=0.25",
    "BaseQuantities.Length>3", "/Qto_.*/.Length!=NULL", "/BaseQ.*/./.*Area/>10", "type=NULL",
    "IfcDoor, Name=NULL+IfcWindow", "IfcDoor, Name=A+IfcWindow", "\"Pset_WallCommon\".\"LoadBearing\"=TRUE",
]


def compared_models():
    return [model for model in models() if model.name not in READ_OTHERWISE]


def quoted(text):
    return '"' + text.replace('"', '\\"') + '"'


def can_stand_in_quotes(text):
    return text and "\\" not in text and "\n" not in text


def selections_from(file, count, seed):
    """Selections for what elements of the file hold, so that each chooses something."""
    chance = random.Random(seed)
    products = sorted(file.by_type("IfcProduct"), key=lambda product: product.id())
    found = []
    for product in chance.sample(products, min(count, len(products))):
        choices = [product.is_a()]
        for name, value in product.get_info(recursive=False).items():
            if isinstance(value, str) and name[0].isupper() and can_stand_in_quotes(value):
                choices.append(f"{name}={quoted(value)}")
        for set_name, properties in util.get_psets(product).items():
            for name, value in properties.items():
                if name != "id" and set_name and can_stand_in_quotes(set_name) and can_stand_in_quotes(name):
                    choices += comparisons(f"{quoted(set_name)}.{quoted(name)}", value)
        choices += related(product)
        found += chance.sample(choices, min(3, len(choices)))
    return found


def comparisons(name, value):
    if isinstance(value, bool):
        return [f"{name}={str(value).upper()}"]
    if isinstance(value, (int, float)):
        return [f"{name}={quoted(repr(value))}", f"{name}>={quoted(repr(value))}", f"{name}<{quoted(repr(value))}"]
    if isinstance(value, str) and can_stand_in_quotes(value):
        return [f"{name}={quoted(value)}", f"{name}!={quoted(value)}"]
    return [f"{name}=NULL"]


def related(product):
    names = [("type", getattr(util.get_type(product), "Name", None)),
             ("location", getattr(util.get_container(product), "Name", None))]
    names += [("material", material.Name) for material in util.get_materials(product) if material]
    return [f"{facet}={quoted(name)}" for facet, name in names if name and can_stand_in_quotes(name)]


@unittest.skipUnless(ifcopenshell, "ifcopenshell is not installed; scripts/independent-reader sets it up")
class Selector(unittest.TestCase):
    maxDiff = 2000

    def chosen_by_both(self, model, file, selection, single):
        theirs = {element.GlobalId for element in filter_elements(file, selection) if element.is_a("IfcProduct")}
        ours = {element["globalId"] for element in modelhost("list", model, "--where", selection)["elements"]}
        return theirs & single, ours & single

    def compare(self, model, selections):
        file = ifcopenshell.open(str(model))
        listed = {element["globalId"] for element in elements(model)}
        counts = Counter(product.GlobalId for product in file.by_type("IfcProduct"))
        single = {guid for guid in listed if counts[guid] == 1}
        for selection in selections(file):
            with self.subTest(model=model.name, selection=selection):
                theirs, ours = self.chosen_by_both(model, file, selection, single)
                self.assertEqual(ours, theirs)

    def test_the_usual_selections_choose_the_same(self):
        for model in compared_models():
            self.compare(model, lambda file: FIXED)

    def test_selections_made_from_what_elements_hold_choose_the_same(self):
        for model in compared_models():
            self.compare(model, lambda file: selections_from(file, 12, seed=7))

    def test_selections_of_the_sample_choose_something(self):
        file = ifcopenshell.open(str(HOUSE))
        for selection in selections_from(file, 12, seed=7):
            if "!=" not in selection and "<" not in selection:
                self.assertTrue(modelhost("list", HOUSE, "--where", selection)["elements"], selection)


if __name__ == "__main__":
    unittest.main()
