#pragma once
// Numbers in sentences, as both programs write them.

#include <cstdint>
#include <string>
#include <string_view>

namespace updatefile {

struct LineNotes;

/// "1 line", "2 lines"
std::string counted(std::uint64_t count, std::string_view noun);

/// "line 4", "lines 4 and 17", "lines 4, 17, 20, 31, 40 and 12 more"
std::string numbered(std::string_view noun, const LineNotes& notes);

}  // namespace updatefile
