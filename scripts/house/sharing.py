"""The sample house as programs write it that share more, or less, than a careful person would."""

from house.data import DescribedHouse
from house.step import Typed


class OneByOne(DescribedHouse):
    """As programs write it that give each element relations of its own, to sets that many share."""

    def relate(self, ifc_class, key, name, *ends):
        shared = ifc_class in ("IfcRelDefinesByProperties", "IfcRelDefinesByType", "IfcRelAssociatesClassification")
        if not shared:
            return super().relate(ifc_class, key, name, *ends)
        for number, element in enumerate(ends[0]):
            last = super().relate(ifc_class, f"{key} {number}", name, (element,), *ends[1:])
        return last


class SetsOfSets(DescribedHouse):
    """Relations that name sets of sets: the first of each element holds the office's, too."""

    office = None

    def give(self, key, definition, elements):
        if self.office is None:
            self.having_office = set()
            self.office = self.property_set("office", "House_Office", (
                ("DrawnBy", "IfcLabel", "Käthe"), ("Sheet", "IfcIdentifier", "A-101"), ("Revision", "IfcInteger", 3)))
        sets = (definition,) if self.having_office & set(elements) else (definition, self.office)
        self.having_office |= set(elements)
        return self.relate("IfcRelDefinesByProperties", key, None, tuple(elements),
                           Typed("IfcPropertySetDefinitionSet", sets))
