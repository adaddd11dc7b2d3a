#pragma once

#include "model/ifc/schema/Schema.hpp"
#include "text/Message.hpp"

namespace model::ifc {

/// How the host calls an element of an IFC class.
struct ElementType {
    std::int32_t id;    ///< Type identifier of the element header.
    text::Phrase name;  ///< Display name.
};

/// By the nearest ancestor that the host has a type for. @param product  A subtype of IfcProduct.
ElementType elementTypeOf(const Entity& product);

/// The display name of a type identifier; none for an unknown one.
text::Phrase elementTypeName(std::int32_t id);

/// Every display name once, in English.
std::vector<std::string_view> elementTypeNames();

}  // namespace model::ifc
