#pragma once

#include "model/base/Records.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace model {

/// The 22-character GlobalId (IFC's base-64 of the 16 bytes), and back. Nothing where the text is no GlobalId: 22
/// characters of 0-9 A-Z a-z _ $, the first at most '3'.
std::string toGlobalId(const Guid& guid);
std::optional<Guid> fromGlobalId(std::string_view globalId);

/// The 36-character form, upper case.
std::string guidText(const Guid& guid);

}  // namespace model
