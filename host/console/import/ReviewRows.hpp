#pragma once
// What a row of the review list means, by the texts in its columns.

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

/// A hint for rows that ended in "error!" because the item does not exist and the line names no property set in which
/// to create it. The host refused nothing then, so its report does not say why. @param result  after Apply, row by row
/// as in `review`.
std::optional<std::string> hintForUnknownItems(const std::vector<ListRow>& review, const std::vector<ListRow>& result);

}  // namespace console
