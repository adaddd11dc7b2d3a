#pragma once
// The findings as sentences, each with what to do about it.

#include "text/Message.hpp"
#include "updatefile/UpdateFileScan.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace updatefile {

/// What the review list made of the update file.
struct ReviewCounts {
    std::uint64_t rows = 0;
    std::uint64_t rowsLost = 0;
};

/// @param shows  where this program's user finds GUIDs, to be followed by an object: "'modelhost list' prints".
std::vector<std::string> hintsFor(const UpdateFileFindings& findings, const ReviewCounts& counts,
                                  std::string_view shows);

inline constexpr text::Phrase NoTextFile =
    text::phrase("it is no text file; save the table as tab-delimited text in UTF-8");

/// Why the file cannot be an update file, with what to do; nothing if it can be one.
std::optional<std::string> uselessBecause(const UpdateFileFindings& findings);

}  // namespace updatefile
