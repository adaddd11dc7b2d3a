#pragma once
// Tab-separated output: one record a line, the header first; the escapes are those of escaped().

#include <string>
#include <vector>

namespace console {

std::string tsvLine(const std::vector<std::string>& cells);

}  // namespace console
