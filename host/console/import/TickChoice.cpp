#include "console/import/TickChoice.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <optional>

namespace console {
namespace {

std::optional<std::uint32_t> parseRow(std::string_view text) {
    std::uint32_t row = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), row);
    if (error != std::errc{} || end != text.data() + text.size() || row == 0) return std::nullopt;
    return row;
}

std::optional<TickChoice::Range> parseRange(std::string_view text) {
    const std::size_t dash = text.find('-');
    const auto first = parseRow(text.substr(0, dash));
    const auto last = dash == std::string_view::npos ? first : parseRow(text.substr(dash + 1));
    if (!first || !last || *last < *first) return std::nullopt;
    return TickChoice::Range{*first, *last};
}

void sortAndMerge(std::vector<TickChoice::Range>& ranges) {
    std::sort(ranges.begin(), ranges.end());
    std::vector<TickChoice::Range> merged;
    for (const auto& range : ranges) {
        if (!merged.empty() && range.first <= merged.back().second) {
            merged.back().second = std::max(merged.back().second, range.second);
        } else {
            merged.push_back(range);
        }
    }
    ranges = std::move(merged);
}

}  // namespace

model::Result<TickChoice> parseTickChoice(std::string_view text) {
    if (text == "all") return TickChoice{};
    if (text == "none") return TickChoice{TickChoice::Kind::None, {}};
    TickChoice choice{TickChoice::Kind::Rows, {}};
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t comma = std::min(text.find(',', start), text.size());
        const auto range = parseRange(text.substr(start, comma - start));
        if (!range) {
            return model::Error{model::ErrorKind::BadParameter,
                                fmt::format("--tick {}: '{}' is no row or range of rows; write all, none, or row "
                                            "numbers from 1 such as 1,4-9",
                                            text, text.substr(start, comma - start))};
        }
        choice.ranges.push_back(*range);
        start = comma + 1;
    }
    sortAndMerge(choice.ranges);
    return choice;
}

}  // namespace console
