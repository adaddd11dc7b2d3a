#pragma once
// Numbers in sentences.

#include <cstdint>
#include <string>
#include <string_view>

namespace updatefile {

struct LineNotes;

/// "1 line", "2 lines", for the command line: in English, whatever language there is.
std::string counted(std::uint64_t count, std::string_view noun);

/// "4", "4 and 17", "4, 17, 20, 31, 40 and 12 more"
std::string listed(const LineNotes& notes);
/// "line 4", "lines 4 and 17"
std::string numberedLines(const LineNotes& notes);
/// "row 4", "rows 4 and 17"
std::string numberedRows(const LineNotes& notes);

}  // namespace updatefile
