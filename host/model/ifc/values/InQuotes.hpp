#pragma once

#include <string>
#include <string_view>

namespace model::ifc {

/// For messages: in quotes, cut short where it is long.
std::string inQuotes(std::u16string_view text);

}  // namespace model::ifc
