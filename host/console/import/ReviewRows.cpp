#include "console/import/ReviewRows.hpp"

#include "updatefile/ReviewList.hpp"
#include "updatefile/UpdateFileScan.hpp"
#include "updatefile/Wording.hpp"

#include <fmt/format.h>

namespace console {
namespace {

using namespace updatefile::reviewlist;

const std::string& cell(const ListRow& row, std::size_t column) {
    static const std::string none;
    return column < row.columns.size() ? row.columns[column] : none;
}

}  // namespace

bool ticked(const ListRow& row) {
    return cell(row, TickColumn) == Ticked;
}

bool done(const ListRow& row) {
    return cell(row, RemarksColumn) == Done;
}

bool failed(const ListRow& row) {
    return cell(row, RemarksColumn) == Error;
}

bool namesNothing(const ListRow& row) {
    return cell(row, RemarksColumn).find(NotFound) != std::string::npos &&
           cell(row, PropertyColumn).find('[') == std::string::npos;
}

std::optional<std::string> hintForUnknownItems(const std::vector<ListRow>& review, const std::vector<ListRow>& result) {
    updatefile::LineNotes rows;
    for (std::size_t i = 0; i < result.size() && i < review.size(); ++i)
        if (failed(result[i]) && namesNothing(review[i])) rows.add(i + 1);
    if (rows.count == 0) return std::nullopt;
    const std::string& item = review[rows.first.front() - 1].columns[PropertyColumn];
    return fmt::format(
        "Nothing on the element has the name in {}: to create a property, write a set behind it, as in "
        "{}[Custom] for Pset_Custom",
        updatefile::numbered("row", rows), item);
}

}  // namespace console
