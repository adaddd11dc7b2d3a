#include "model/ifc/values/InQuotes.hpp"

#include "text/Unicode.hpp"

#include <unicode/utf16.h>

#include <algorithm>

namespace model::ifc {

std::string inQuotes(std::u16string_view text) {
    constexpr std::size_t Longest = 60;
    std::size_t end = std::min(text.size(), Longest);
    // Half of a pair is no character.
    if (end < text.size() && U16_IS_TRAIL(text[end])) --end;
    return '"' + text::toUtf8(text.substr(0, end)) + (end < text.size() ? "...\"" : "\"");
}

}  // namespace model::ifc
