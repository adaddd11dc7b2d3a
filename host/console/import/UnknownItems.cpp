#include "console/import/UnknownItems.hpp"

#include "console/import/ReviewList.hpp"
#include "updates/Hints.hpp"

#include <fmt/format.h>

namespace console {

std::optional<std::string> hintForUnknownItems(const std::vector<ListRow>& review, const std::vector<ListRow>& result) {
    updates::LineNotes rows;
    for (std::size_t i = 0; i < result.size() && i < review.size(); ++i)
        if (reviewlist::failed(result[i]) && reviewlist::namesNothing(review[i])) rows.add(i + 1);
    if (rows.count == 0) return std::nullopt;
    const std::string& item = review[rows.first.front() - 1].columns[reviewlist::PropertyColumn];
    return fmt::format(
        "Nothing on the element has the name in {}: to create a property, write a set behind it, as in "
        "{}[Custom] for Pset_Custom",
        updates::numbered("row", rows), item);
}

}  // namespace console
