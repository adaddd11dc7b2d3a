#pragma once
// The items of an export: --items 'Name,FireRating[WallCommon],UniFormat Classification'.

#include "model/base/Result.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace console {

/// Cut at commas, blanks around each dropped. Fails for an item without a name and for one that no line can hold.
model::Result<std::vector<std::string>> parseItems(std::string_view text);

/// The same check for an item that is taken as it stands.
model::Status checkItem(std::string_view item);

}  // namespace console
