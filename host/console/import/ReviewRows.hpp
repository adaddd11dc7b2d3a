#pragma once
// What the rows of the review list say to a person who knows its columns and texts.

#include "console/output/ListRows.hpp"

#include <optional>
#include <string>
#include <vector>

namespace console {

bool ticked(const ListRow& row);
bool done(const ListRow& row);
bool failed(const ListRow& row);

/// The row's designation has no property set, and its name is on the element neither as attribute nor as property or
/// classification.
bool namesNothing(const ListRow& row);

/// For rows that ended in an error although the host refused nothing: the designation names nothing that there is, and
/// no property set in which to create it. @param result  after Apply, row by row as in `review`.
std::optional<std::string> hintForUnknownItems(const std::vector<ListRow>& review, const std::vector<ListRow>& result);

}  // namespace console
