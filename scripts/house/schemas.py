"""The sample house as other versions of IFC say it: what is written for IFC4 is translated instance by instance."""

from pathlib import Path

from house.data import DescribedHouse
from house.step import DERIVED, FALSE, Enum, Typed

FACTS = Path(__file__).resolve().parent.parent / "ifc-schema"

# What a class is called where the schema has not the one of IFC4.
OTHER_CLASSES = {
    "IfcGeographicElement": "IfcBuildingElementProxy",
    "IfcFurniture": "IfcFurnishingElement",
    "IfcLightFixture": "IfcFlowTerminal",
    "IfcDoorType": "IfcDoorStyle",
    "IfcWindowType": "IfcWindowStyle",
}
# The names that an attribute of IFC4 has elsewhere.
OTHER_NAMES = {
    "Identification": ("Id", "ItemReference"),
    "PredefinedType": ("ShapeType", "InteriorOrExteriorSpace"),
    "Description": ("Specification",),
}
ENTITY, ENUMERATION, TYPE = "entity", "enum", "type"


class Schema:
    def __init__(self, name):
        self.name = name
        self.facts = {}     # (kind, name) -> the columns behind the name.
        for line in (FACTS / f"{name}.tsv").read_text(encoding="ascii").splitlines():
            if not line.startswith("#"):
                kind, key, *columns = line.split("\t")
                self.facts[kind, key] = columns

    def has(self, kind, name):
        return (kind, name) in self.facts

    def attributes(self, ifc_class):
        """[name, type, whether it is required, whether the class derives it] of each, inherited first."""
        parent, _, own, derived = self.facts[ENTITY, ifc_class]
        inherited = [] if parent == "-" else self.attributes(parent)
        new = [] if own == "-" else [entry.split(":") for entry in own.split(";")]
        here = derived.split(",")
        return [[name, kind, required, was or name in here] for name, kind, required, was in inherited] + [
            [name, kind, rest == "req", name in here] for name, kind, rest in new]

    def items(self, enumeration):
        return self.facts[ENUMERATION, enumeration][0].split(",")


class TranslatedHouse(DescribedHouse):
    """Writes each instance by the names of its attributes, in the order of the other schema."""

    def __init__(self, schema):
        super().__init__()
        self.written, self.wanted = Schema("IFC4"), Schema(schema)

    def add(self, ifc_class, *values):
        names = [attribute[0] for attribute in self.written.attributes(ifc_class)]
        given = dict(zip(names, values))
        if not self.wanted.has(ENTITY, ifc_class):
            ifc_class = OTHER_CLASSES[ifc_class]
        attributes = self.wanted.attributes(ifc_class)
        return super().add(ifc_class, *(self.value(given, *attribute) for attribute in attributes))

    def value(self, given, name, kind, required, derived):
        if derived:
            return DERIVED
        older = [new for new, others in OTHER_NAMES.items() if name in others]
        value = next((given[key] for key in (name, *older) if given.get(key) is not None), None)
        if self.wanted.has(ENUMERATION, kind) and (value is not None or required):
            items = self.wanted.items(kind)
            return Enum(value if value in items else "NOTDEFINED")
        if value is None and required and kind == "BOOLEAN":
            return FALSE
        return self.adapted(value)

    def adapted(self, value):
        """A date is a text where the schema has no type for it."""
        if isinstance(value, Typed) and not self.wanted.has(TYPE, value.ifc_type):
            return Typed("IfcLabel", value.value)
        if isinstance(value, (tuple, list)):
            return tuple(self.adapted(item) for item in value)
        return value

    def outline(self, corners):
        if self.wanted.has(ENTITY, "IfcIndexedPolyCurve"):
            return super().outline(corners)
        points = tuple(self.point(*corner) for corner in (*corners, corners[0]))
        return super().add("IfcPolyline", points)
