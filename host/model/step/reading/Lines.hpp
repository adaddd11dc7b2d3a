#pragma once

#include "model/step/index/Remark.hpp"

#include <string_view>
#include <vector>

namespace model::step {

/// Sorts the remarks by offset and fills in their lines, counted from 1. Lines end with CR LF, LF or CR. Counting them
/// is a pass of its own over the bytes, made only as far as there is something to report.
void numberLines(std::string_view bytes, std::vector<Remark>& remarks);

}  // namespace model::step
