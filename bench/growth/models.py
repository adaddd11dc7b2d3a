"""Models of a shape, as large as asked for, and the updates for them. The same sizes give the same bytes."""

import sys
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[2] / "scripts"))
from house.step import global_id, guid_of  # noqa: E402  The folder has to be known first.

HEADER = """ISO-10303-21;
HEADER;
FILE_DESCRIPTION(('ViewDefinition [ReferenceView]'),'2;1');
FILE_NAME('shape.ifc','2026-01-01T00:00:00',(''),(''),'bench/compare','','');
FILE_SCHEMA(('IFC4'));
ENDSEC;
DATA;
#1=IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.);
#2=IFCUNITASSIGNMENT((#1));
"""
FOOTER = "ENDSEC;\nEND-ISO-10303-21;\n"
SYSTEM = "UniFormat Classification"


def wall_guid(number):
    """As an update file names the wall."""
    return str(guid_of(f"wall {number}")).upper()


class Model:
    """Writes the walls, all in one storey, and with each call what they have; `value` is that of every property and the
    code of every classification. At the end of `with` the file is whole."""

    def __init__(self, path, walls, value):
        self.out = open(path, "w", encoding="ascii", newline="")
        self.last, self.value = 2, value
        self.out.write(HEADER)
        project = self.root("IFCPROJECT", "'Growth',$,$,$,$,$,#2")
        storey = self.root("IFCBUILDINGSTOREY", "'Ground floor',$,$,$,$,$,.ELEMENT.,0.")
        self.root("IFCRELAGGREGATES", f"$,$,#{project},(#{storey})")
        self.walls = [self.root("IFCWALL", f"'Wall {number}',$,$,$,$,$,$", f"wall {number}") for number in range(walls)]
        self.relate("IFCRELCONTAINEDINSPATIALSTRUCTURE", self.walls, storey)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.out.write(FOOTER)
        self.out.close()

    def add(self, ifc_class, values):
        self.last += 1
        self.out.write(f"#{self.last}={ifc_class}({values});\n")
        return self.last

    def root(self, ifc_class, values, key=None):
        return self.add(ifc_class, f"'{global_id(key or f'root {self.last + 1}')}',$,{values}")

    def relate(self, ifc_class, elements, relating):
        self.root(ifc_class, f"$,$,({references(elements)}),#{relating}")

    def property_set(self, elements, name, properties):
        """One relation gives one set to all `elements`."""
        self.relate("IFCRELDEFINESBYPROPERTIES", elements, self.lone_set(name, properties))

    def type_with_set(self, elements, name, properties):
        """All `elements` are of one type, which has the set."""
        made = self.lone_set(name, properties)
        self.relate("IFCRELDEFINESBYTYPE", elements, self.root("IFCWALLTYPE", f"'Type',$,$,(#{made}),$,$,$,.STANDARD."))

    def lone_set(self, name, properties):
        members = [self.add("IFCPROPERTYSINGLEVALUE", f"'{item}',$,IFCLABEL('{self.value}'),$") for item in properties]
        return self.root("IFCPROPERTYSET", f"'{name}',$,({references(members)})")

    def classification(self, elements):
        reference = self.add("IFCCLASSIFICATIONREFERENCE", f"$,'{self.value}','{SYSTEM}',$,$,$")
        self.root("IFCRELASSOCIATESCLASSIFICATION", f"'{SYSTEM}',$,({references(elements)}),#{reference}")


def references(ids):
    return ",".join(f"#{i}" for i in ids)


def items(count, first=1):
    """Names of properties."""
    return [f"Item {number}" for number in range(first, first + count)]


def write_updates(path, targets):
    """A line for each (wall's number, item)."""
    with open(path, "w", encoding="ascii", newline="") as out:
        for number, (wall, item) in enumerate(targets):
            out.write(f"{wall_guid(wall)}\t{item}\t\tpassed {number}\n")
