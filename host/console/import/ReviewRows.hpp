#pragma once
// What a row of the review list means, by the texts in its columns.

#include "console/output/ListRows.hpp"
#include "updatefile/UpdateFileScan.hpp"

#include <optional>
#include <string>
#include <vector>

namespace console {

bool ticked(const ListRow& row);
bool done(const ListRow& row);
bool failed(const ListRow& row);

/// The element has neither attribute, property nor classification of the row's item, and the item names no property set
/// and none of the two classification systems that the add-on adds to an element: so nothing could be created either.
bool namesNothing(const ListRow& row);

/// The rows that could be applied and were ticked, but are neither "Done" nor "error!" afterwards: the add-on did not
/// come to them. @param result  after Apply, row by row as in `review`.
updatefile::LineNotes unfinishedRows(const std::vector<ListRow>& review, const std::vector<ListRow>& result);

/// A hint for rows that ended in "error!" because the item does not exist and the line names no property set in which
/// to create it. The host refused nothing then, so its report does not say why. @param result  after Apply, row by row
/// as in `review`.
std::optional<std::string> hintForUnknownItems(const std::vector<ListRow>& review, const std::vector<ListRow>& result);

}  // namespace console
