#pragma once
// The findings in words, each with what to do about it.

#include "console/import/UpdateFileScan.hpp"

namespace console {

/// What the review list made of the update file.
struct ReviewCounts {
    std::uint64_t rows = 0;
    std::uint64_t rowsLost = 0;
};

std::vector<std::string> hintsFor(const UpdateFileFindings& findings, const ReviewCounts& counts);

/// "line 4", "lines 4 and 17", "lines 4, 17, 20, 31, 40 and 12 more"
std::string lineNumbers(const LineNotes& notes);

}  // namespace console
