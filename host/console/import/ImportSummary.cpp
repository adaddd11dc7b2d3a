#include "console/import/ImportReport.hpp"
#include "console/import/ReviewList.hpp"

#include <algorithm>

namespace console {
namespace {

template <class Predicate>
std::uint64_t count(const std::vector<ListRow>& rows, const Predicate& predicate) {
    return static_cast<std::uint64_t>(std::count_if(rows.begin(), rows.end(), predicate));
}

}  // namespace

ImportSummary summarize(std::uint64_t lines, const std::vector<ListRow>& review,
                        const std::optional<std::vector<ListRow>>& result, std::uint64_t rowsLost) {
    ImportSummary summary;
    summary.lines = lines;
    summary.rows = review.size();
    summary.tickable = count(review, [](const ListRow& row) { return row.status == DG_IS_ENABLE; });
    summary.ticked = count(review, reviewlist::ticked);
    if (result) {
        summary.done = count(*result, reviewlist::done);
        summary.errors = count(*result, reviewlist::failed);
    }
    summary.rowsLost = rowsLost;
    return summary;
}

}  // namespace console
