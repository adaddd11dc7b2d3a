#pragma once
// What a row of the review list means, by the texts in its columns.

#include "importing/ListRows.hpp"
#include "model/Model.hpp"
#include "updatefile/StandardHints.hpp"
#include "updatefile/UpdateFileScan.hpp"

#include <optional>
#include <string>
#include <vector>

namespace importing {

bool ticked(const ListRow& row);
bool done(const ListRow& row);
bool failed(const ListRow& row);

/// The element has neither attribute, property nor classification of the row's item, and the item names no property set
/// and none of the two classification systems that the add-on adds to an element: so nothing could be created either.
bool namesNothing(const ListRow& row);

/// The rows that could be applied and were ticked, but are neither "Done" nor "error!" afterwards: the add-on did not
/// come to them. @param result  after Apply, row by row as in `review`.
updatefile::LineNotes unfinishedRows(const std::vector<ListRow>& review, const std::vector<ListRow>& result);

/// For rows that ended in an error although the host refused nothing: the designation names nothing that there is, and
/// no property set in which to create it. What means a classification is left out.
/// @param result     after Apply, row by row as in `review`.
/// @param explained  rows of which another hint says more, from 1 and in order.
std::optional<std::string> hintForUnknownItems(const std::vector<ListRow>& review, const std::vector<ListRow>& result,
                                               const std::vector<std::uint64_t>& explained);

/// The rows that can be ticked and whose item the element has not got. @param result  as above; none before Apply.
std::vector<updatefile::UnknownItem> unknownItems(const model::Model& model, const std::vector<ListRow>& review,
                                                  const std::optional<std::vector<ListRow>>& result);

/// What the rows' names probably mean, by the standard sets and by what could not be stored. @param result  as above.
std::vector<std::string> hintsOnNames(const model::Model& model, const std::vector<ListRow>& review,
                                      const std::optional<std::vector<ListRow>>& result);

}  // namespace importing
