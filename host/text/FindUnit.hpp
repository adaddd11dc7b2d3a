#pragma once

#include <cstddef>
#include <string_view>

namespace text {

/// As units.find(unit), many units at a time: rows of a list may show thousands of long texts.
inline std::size_t findUnit(std::u16string_view units, char16_t unit) {
    constexpr std::size_t AtATime = 32;  // The compiler makes vectors of them.
    std::size_t at = 0;
    for (; at + AtATime <= units.size(); at += AtATime) {
        bool here = false;
        for (std::size_t i = 0; i < AtATime; ++i) here |= units[at + i] == unit;
        if (here) break;
    }
    return units.find(unit, at);
}

}  // namespace text
