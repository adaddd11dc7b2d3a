#pragma once
// Which rows of the review list the user ticks: --tick all|none|1,4-9.

#include "model/base/Result.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace console {

struct TickChoice {
    enum class Kind : std::uint8_t { All, None, Rows };
    using Range = std::pair<std::uint32_t, std::uint32_t>;  ///< First and last row, from 1.

    Kind kind = Kind::All;
    std::vector<Range> ranges;  ///< Sorted, without overlap: a second click would remove the tick.

    /// The highest row named, 0 where none is.
    std::uint32_t lastRow() const { return ranges.empty() ? 0 : ranges.back().second; }
};

model::Result<TickChoice> parseTickChoice(std::string_view text);

}  // namespace console
