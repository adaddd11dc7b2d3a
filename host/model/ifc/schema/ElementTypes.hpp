#pragma once

#include "model/ifc/schema/Schema.hpp"

namespace model::ifc {

/// How the host calls an element of an IFC class.
struct ElementType {
    std::int32_t id;        ///< Type identifier of the element header.
    std::string_view name;  ///< Display name.
};

/// By the nearest ancestor that the host has a type for. @param product  A subtype of IfcProduct.
ElementType elementTypeOf(const Entity& product);

/// The display name of a type identifier; empty for an unknown one.
std::string_view elementTypeName(std::int32_t id);

/// Every display name once.
std::vector<std::string_view> elementTypeNames();

}  // namespace model::ifc
