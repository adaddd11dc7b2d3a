#pragma once

#include "model/base/Records.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace model {

/// The 22-character GlobalId (IfcGloballyUniqueId: IFC's own base-64 of the 16 bytes).
std::string toGlobalId(const Guid& guid);
/// And back. Nothing where the text is no GlobalId: 22 characters of 0-9 A-Z a-z _ $, the first at most '3', since 22
/// digits of 6 bits would hold 132 bits and a GUID has 128.
std::optional<Guid> fromGlobalId(std::string_view globalId);

}  // namespace model
