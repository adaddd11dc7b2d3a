"""A model's data as ifcopenshell sees it: one flat snapshot that two files can be compared by."""

import re

import ifcopenshell

SIMPLE = (str, int, float, bool, type(None))


def text_of(instance):
    """An instance's own line without its id: whatever it says, references included."""
    return re.sub(r"^#\d+=", "", str(instance))


def property_entry(set_name, item):
    if item.is_a("IfcPropertySingleValue"):
        value = item.NominalValue
        return set_name, item.Name, value.is_a() if value else None, value.wrappedValue if value else None
    return set_name, item.Name, item.is_a(), text_of(item)


def sets_of(definition):
    """IFC4 may relate a set of sets in one go."""
    return definition.wrappedValue if definition.is_a("IfcPropertySetDefinitionSet") else [definition]


def entries_of_set(definition):
    if definition.is_a("IfcPropertySet"):
        return [property_entry(definition.Name, item) for item in definition.HasProperties]
    return [(definition.is_a(), text_of(definition), None, None)]


def classification_entry(relation):
    reference = relation.RelatingClassification
    if not reference.is_a("IfcClassificationReference"):
        return relation.Name, reference.is_a(), text_of(reference), None
    source = reference
    while source is not None and source.is_a("IfcClassificationReference"):
        source = source.ReferencedSource
    code = reference.ItemReference if reference.file.schema == "IFC2X3" else reference.Identification
    label = relation.Name or (source.Name if source else None)
    return label, code, reference.Name, text_of(source) if source else None


class Snapshot:
    """By instance id, for every object and type: its attributes, properties and classification references."""

    def __init__(self, path):
        self.file = ifcopenshell.open(str(path))
        self.attributes, self.properties, self.classifications, self.ids = {}, {}, {}, {}
        for thing in self.file.by_type("IfcObjectDefinition"):
            info = thing.get_info(recursive=False)
            self.attributes[thing.id()] = {name: value for name, value in info.items() if isinstance(value, SIMPLE)}
            self.properties[thing.id()] = []
            self.classifications[thing.id()] = []
            self.ids.setdefault(thing.GlobalId, thing.id())
        self.read_relations()

    def read_relations(self):
        for relation in self.file.by_type("IfcRelDefinesByProperties"):
            entries = [e for s in sets_of(relation.RelatingPropertyDefinition) for e in entries_of_set(s)]
            for thing in relation.RelatedObjects:
                self.properties[thing.id()] += entries
        for type_object in self.file.by_type("IfcTypeObject"):
            for definition in type_object.HasPropertySets or ():
                self.properties[type_object.id()] += entries_of_set(definition)
        for relation in self.file.by_type("IfcRelAssociatesClassification"):
            for thing in relation.RelatedObjects:
                if thing.id() in self.classifications:
                    self.classifications[thing.id()].append(classification_entry(relation))

    def element(self, guid):
        """The instance id of an element, by its GUID in 36 characters."""
        return self.ids[ifcopenshell.guid.compress(guid.replace("-", "").lower())]
