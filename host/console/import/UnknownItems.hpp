#pragma once
// A hint that only the list after Apply gives.

#include "console/output/ListRows.hpp"

#include <optional>
#include <string>
#include <vector>

namespace console {

/// For rows that ended in an error although the host refused nothing: the designation names nothing that there is, and
/// no property set in which to create it. @param result  after Apply, row by row as in `review`.
std::optional<std::string> hintForUnknownItems(const std::vector<ListRow>& review, const std::vector<ListRow>& result);

}  // namespace console
