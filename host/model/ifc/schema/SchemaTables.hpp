#pragma once
// The form of the generated tables.

#include "model/ifc/schema/Schema.hpp"

namespace model::ifc {

/// An entity with what it declares itself; places are indexes into the schema's other tables.
struct EntityRow {
    std::string_view name;
    std::int16_t super;  ///< -1 at a root.
    bool abstract;
    std::uint16_t firstAttribute;
    std::uint16_t attributeCount;
    std::uint16_t firstDerived;
    std::uint16_t derivedCount;
};

struct SchemaRows {
    std::span<const DefinedType> types;
    std::span<const Attribute> attributes;
    std::span<const std::string_view> derived;  ///< Names of inherited attributes that an entity derives.
    std::span<const EntityRow> entities;
};

const SchemaRows& schemaRows(SchemaVersion version);

}  // namespace model::ifc
