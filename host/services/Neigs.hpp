#pragma once
// Neig identifiers: the handles of clicked element parts.

#include "APITypes.hpp"

#include <optional>

namespace host {

struct NeigPart {
    API_NeigID id;
    Int32 index;
};

/// The part that a click on an element of the type hits; nothing for a type without one.
std::optional<NeigPart> neigOfType(API_ElemTypeID type);

/// 0 for an unknown identifier.
API_ElemTypeID typeOfNeig(API_NeigID neig);

}  // namespace host
