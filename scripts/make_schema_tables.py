#!/usr/bin/env python3
"""Writes SchemaTables.cpp and StandardSetTables.cpp in host/model/ifc/schema from scripts/ifc-schema/*.tsv.

With --check nothing is written: the exit status is 1 where a committed file is not what its source gives.
The first line of each .tsv describes its columns. psets-*.tsv hold the property sets that come with each schema.
"""

import pathlib
import re
import sys

HERE = pathlib.Path(__file__).resolve().parent
TARGETS = HERE.parent / "host/model/ifc/schema"
SCHEMAS = ["IFC2X3", "IFC4", "IFC4X3"]
BUILT_IN = {"INTEGER": "Integer", "REAL": "Real", "NUMBER": "Number", "BOOLEAN": "Boolean", "LOGICAL": "Logical",
            "STRING": "String", "BINARY": "Binary"}
AGGREGATE = re.compile(r"^(SET|LIST|ARRAY|BAG)\((.*)\)$")


class Facts:
    """One schema's table, by kind of line and name."""

    def __init__(self, schema):
        self.entities, self.types, self.kinds = {}, {}, {}
        for line in (HERE / "ifc-schema" / f"{schema}.tsv").read_text(encoding="ascii").splitlines():
            if line and not line.startswith("#"):
                kind, name, *columns = line.split("\t")
                (self.entities if kind == "entity" else self.types)[name] = columns
                self.kinds[name] = kind

    def base_of(self, type_name):
        """The BaseType of an attribute's declared type."""
        if type_name in BUILT_IN:
            return BUILT_IN[type_name]
        if AGGREGATE.match(type_name):
            return "Aggregate"
        kind = self.kinds[type_name]
        if kind == "type":
            return self.base_of(self.types[type_name][0])
        return {"entity": "Reference", "enum": "Enumeration", "select": "Select"}[kind]


def text(value):
    return f'"{value}"sv'


def filled(entries):
    """Many short entries a line: one each would make the file three times as long."""
    lines = [""]
    for entry in entries:
        if lines[-1] and len(lines[-1]) + 1 + len(entry) > 118:
            lines.append("")
        lines[-1] += (" " if lines[-1] else "") + entry
    return lines


def wrapped(values):
    return filled(text(value) + "," for value in values)


def split(column, separator):
    return [] if column == "-" else column.split(separator)


def number(value):
    return value if "." in value else value + ".0"


def limit(rule):
    """One rule of the LIMITS column as designated initialisers; limits of aggregates are of no use to the model."""
    if rule.startswith(("size", "abs[", "[", "samesign")):
        return []
    if match := re.fullmatch(r"(-?[\d.]+?)\.\.(-?[\d.]+)", rule):
        return [("minimum", number(match[1])), ("maximum", number(match[2]))]
    if match := re.fullmatch(r"(maxlen|len)=(\d+)", rule):
        return [("maxLength" if match[1] == "maxlen" else "exactLength", match[2])]
    if match := re.fullmatch(r"(>=?|<=?)(-?[\d.]+)", rule):
        side = "minimum" if match[1][0] == ">" else "maximum"
        excluded = [] if match[1].endswith("=") else [(side + "Excluded", "true")]
        return [(side, number(match[2]))] + excluded
    raise ValueError(f"unknown limit {rule}")


def limits_and_items(facts, name):
    """Designated initialisers by member, and the items (of an enumeration, a select or an `in:` limit)."""
    kind, columns = facts.kinds[name], facts.types[name]
    if kind in ("enum", "select"):
        return {}, split(columns[0], ",")
    members, items = {}, []
    for rule in re.split(r"[;,](?=[a-z<>\[]*[=<>:])", columns[1]) if columns[1] != "-" else []:
        if rule.startswith("in:"):
            items = rule[3:].split(",")
        else:
            members.update(limit(rule))
    if match := AGGREGATE.match(columns[0]):
        items = [match[2]]
    return members, items


MEMBER_ORDER = ["exactLength", "maxLength", "minimum", "maximum", "minimumExcluded", "maximumExcluded"]


def write_types(facts, out):
    rows, items = [], []
    for name in sorted(facts.types):
        members, own_items = limits_and_items(facts, name)
        base = facts.base_of(name)
        row = f"{{.name = {text(name)}, .base = BaseType::{base}"
        if own_items:
            row += f", .items = {{Items + {len(items)}, {len(own_items)}}}"
        for member in MEMBER_ORDER:
            if member in members:
                row += f", .{member} = {members[member]}"
        rows.append(row + "},")
        items += own_items
    out.append("constexpr std::string_view Items[] = {")
    out += wrapped(items)
    out.append("};")
    out.append("constexpr DefinedType Types[] = {")
    out += rows
    out.append("};")


def write_entities(facts, out):
    type_index = {name: index for index, name in enumerate(sorted(facts.types))}
    entity_index = {name: index for index, name in enumerate(sorted(facts.entities))}
    attributes, derived, rows = [], [], []
    for name in sorted(facts.entities):
        parent, abstract, own, own_derived = facts.entities[name]
        first_attribute, first_derived = len(attributes), len(derived)
        for attribute in split(own, ";"):
            attribute_name, type_name, presence = attribute.split(":")
            pointer = f"Types + {type_index[type_name]}" if type_name in type_index else "nullptr"
            optional = "true" if presence == "opt" else "false"
            attributes.append(f"{{{text(attribute_name)}, BaseType::{facts.base_of(type_name)}, {pointer}, "
                              f"{text(type_name)}, {optional}, false}},")
        derived += split(own_derived, ",")
        rows.append(f"{{{text(name)}, {entity_index.get(parent, -1)}, {'true' if abstract == 'abstract' else 'false'}, "
                    f"{first_attribute}, {len(attributes) - first_attribute}, "
                    f"{first_derived}, {len(derived) - first_derived}}},")
    out.append("constexpr Attribute Attributes[] = {")
    out += attributes
    out.append("};")
    out.append("constexpr std::string_view Derived[] = {")
    out += wrapped(derived)
    out.append("};")
    out.append("constexpr EntityRow Entities[] = {")
    out += rows
    out.append("};")


SWITCH_OF_SCHEMAS = [
    "    switch (version) {",
    "        case SchemaVersion::Ifc2x3: return RowsIFC2X3;",
    "        case SchemaVersion::Ifc4: return RowsIFC4;",
    "        case SchemaVersion::Ifc4x3: break;",
    "    }",
    "    return RowsIFC4X3;",
    "}",
    "",
    "}  // namespace model::ifc",
    ""]


def generate():
    out = ["// Generated by scripts/make_schema_tables.py from scripts/ifc-schema/*.tsv. Change those, not this.",
           "// clang-format off",
           '#include "model/ifc/schema/SchemaTables.hpp"',
           "",
           "namespace model::ifc {",
           "",
           "using namespace std::string_view_literals;",
           ""]
    for schema in SCHEMAS:
        facts = Facts(schema)
        out.append(f"namespace {schema.lower()} {{")
        write_types(facts, out)
        write_entities(facts, out)
        out += ["}  // namespace " + schema.lower(), ""]
    for schema in SCHEMAS:
        space = schema.lower()
        out.append(f"constexpr SchemaRows Rows{schema}{{{space}::Types, {space}::Attributes, {space}::Derived, "
                   f"{space}::Entities}};")
    out += ["",
            "const SchemaRows& schemaRows(SchemaVersion version) {",
            *SWITCH_OF_SCHEMAS]
    return "\n".join(out)


# What a line of psets-*.tsv calls a kind, and the model's PropertyKind.
KINDS = {"single": "Single", "list": "List", "bounded": "Bounded", "enumerated": "Enumerated", "table": "Table",
         "reference": "Reference"}


class StandardSets:
    """One schema's standard property sets by name: classes with their predefined type, and properties. A few of IFC4
    have a description where a property's name belongs; nobody can mean these."""

    def __init__(self, schema):
        self.classes, self.properties = {}, {}
        for line in (HERE / "ifc-schema" / f"psets-{schema}.tsv").read_text(encoding="ascii").splitlines():
            if line and not line.startswith("#"):
                name, classes, *definition, _ = line.split("\t")
                self.classes[name] = [self.applicable(text) for text in classes.split(",")]
                if " " not in definition[0]:
                    self.properties.setdefault(name, []).append([column.removeprefix("-") for column in definition])

    @staticmethod
    def applicable(text):
        """(class, predefined type or ""). Sets of IFC2X3 name a schema's part before some classes."""
        before, _, behind = text.partition("/")
        return (behind, "") if behind.startswith("Ifc") else (before, behind)

    def names(self):
        for name, properties in self.properties.items():
            yield name
            for pair in self.classes[name]:
                yield from pair
            for property_name, _, type_name in properties:
                yield from (property_name, type_name)


def write_standard_sets(sets, place, out):
    rows, classes, properties = [], [], []
    for name in sorted(sets.properties):
        own = sorted(sets.properties[name])
        rows.append(f"{{{place[name]},{len(classes)},{len(sets.classes[name])},{len(properties)},{len(own)}}},")
        classes += [f"{{{place[ifc_class]},{place[predefined]}}}," for ifc_class, predefined in sets.classes[name]]
        properties += [f"{{{place[n]},{place[t]},PropertyKind::{KINDS[k]}}}," for n, k, t in own]
    for kind, table in (("Set", rows), ("Class", classes), ("Property", properties)):
        out += [f"constexpr Standard{kind}Row {kind}Rows[] = {{", *filled(table), "};"]


def generate_standard_sets():
    all_sets = {schema: StandardSets(schema) for schema in SCHEMAS}
    names = sorted({name for sets in all_sets.values() for name in sets.names()})
    place = {name: index for index, name in enumerate(names)}
    out = ["// Generated by scripts/make_schema_tables.py from scripts/ifc-schema/psets-*.tsv. Change those, not this.",
           "// clang-format off",
           '#include "model/ifc/schema/StandardSetTables.hpp"',
           "",
           "namespace model::ifc {",
           "",
           "using namespace std::string_view_literals;",
           "",
           "constexpr std::string_view Names[] = {",
           *wrapped(names),
           "};",
           ""]
    for schema in SCHEMAS:
        out.append(f"namespace {schema.lower()} {{")
        write_standard_sets(all_sets[schema], place, out)
        out += ["}  // namespace " + schema.lower(), ""]
    for schema in SCHEMAS:
        space = schema.lower()
        out.append(f"constexpr StandardSetRows Rows{schema}{{Names, {space}::SetRows, {space}::ClassRows, "
                   f"{space}::PropertyRows}};")
    out += ["",
            "const StandardSetRows& standardSetRows(SchemaVersion version) {",
            *SWITCH_OF_SCHEMAS]
    return "\n".join(out)


def main():
    generated = {"SchemaTables.cpp": generate(), "StandardSetTables.cpp": generate_standard_sets()}
    if sys.argv[1:] not in ([], ["--check"]):
        sys.exit(__doc__)
    for name, text_of_file in generated.items():
        target = TARGETS / name
        if not sys.argv[1:]:
            target.write_text(text_of_file, encoding="ascii")
        elif not target.exists() or target.read_text(encoding="ascii") != text_of_file:
            sys.exit(f"{target} is not what scripts/ifc-schema gives; run scripts/make_schema_tables.py")


if __name__ == "__main__":
    main()
