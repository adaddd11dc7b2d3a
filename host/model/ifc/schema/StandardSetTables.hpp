#pragma once
// The form of the generated tables of standard property sets. Numbers stand for places in the table of names.

#include "model/base/Records.hpp"
#include "model/ifc/schema/Schema.hpp"

namespace model::ifc {

struct StandardPropertyRow {
    std::uint16_t name;
    std::uint16_t type;  ///< "IfcLabel"
    PropertyKind kind;
};

/// A class that a set is for.
struct StandardClassRow {
    std::uint16_t name;            ///< A few are of no class of the schema.
    std::uint16_t predefinedType;  ///< The empty name where any will do.
};

struct StandardSetRow {
    std::uint16_t name;
    std::uint16_t firstClass;
    std::uint16_t classCount;
    std::uint16_t firstProperty;
    std::uint16_t propertyCount;
};

struct StandardSetRows {
    std::span<const std::string_view> names;  ///< In order; shared by the schemas.
    std::span<const StandardSetRow> sets;     ///< In the order of their names.
    std::span<const StandardClassRow> classes;
    std::span<const StandardPropertyRow> properties;  ///< Of each set in the order of their names.
};

const StandardSetRows& standardSetRows(SchemaVersion version);

}  // namespace model::ifc
