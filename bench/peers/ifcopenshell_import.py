"""ifcopenshell_import.py MODEL.ifc [UPDATES.txt OUT.ifc]: the same updates through ifcopenshell.

Without updates it only opens the model. Each property named is looked for in the element's own property sets, as the
add-on does; the new value is the line's fourth field."""
import sys
import uuid

import ifcopenshell
import ifcopenshell.guid


def main(path, updates=None, out=None):
    model = ifcopenshell.open(path)
    if updates is None:
        return 0
    done = 0
    with open(updates, encoding="utf-8") as lines:
        for line in lines:
            guid, item, _, value = line.rstrip("\n").split("\t")[:4]
            element = model.by_guid(ifcopenshell.guid.compress(uuid.UUID(guid).hex))
            done += write(element, item.split("[")[0], value)
    model.write(out)
    print(done)
    return 0


def write(element, name, value):
    for relation in element.IsDefinedBy:
        if not relation.is_a("IfcRelDefinesByProperties"):
            continue
        definition = relation.RelatingPropertyDefinition
        if not definition.is_a("IfcPropertySet"):
            continue
        for item in definition.HasProperties:
            if item.Name == name and item.is_a("IfcPropertySingleValue"):
                item.NominalValue.wrappedValue = value
                return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
