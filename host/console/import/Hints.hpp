#pragma once
// The findings in words, each with what to do about it.

#include "console/import/UpdateFileScan.hpp"
#include "console/output/ListRows.hpp"

#include <optional>
#include <string>
#include <vector>

namespace console {

/// What the review list made of the update file.
struct ReviewCounts {
    std::uint64_t rows = 0;
    std::uint64_t rowsLost = 0;
};

std::vector<std::string> hintsFor(const UpdateFileFindings& findings, const ReviewCounts& counts);

/// For rows that ended in an error although the host refused nothing: the designation names nothing that there is, and
/// no property set in which to create it. @param result  after Apply, row by row as in `review`.
std::optional<std::string> hintForUnknownItems(const std::vector<ListRow>& review, const std::vector<ListRow>& result);

/// "line 4", "lines 4 and 17", "lines 4, 17, 20, 31, 40 and 12 more"
std::string numbered(std::string_view noun, const LineNotes& notes);

}  // namespace console
