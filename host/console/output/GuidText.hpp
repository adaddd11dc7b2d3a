#pragma once
// An element's identifier in its 36-character form.

#include "model/Model.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace console {

/// "A32931C7-B3B2-4117-8D6A-3038DD4E9A78"
std::string guidText(const model::Guid& guid);
std::optional<model::Guid> parseGuid(std::string_view text);

}  // namespace console
