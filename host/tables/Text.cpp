#include "tables/Text.hpp"

#include <algorithm>

namespace tables {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view Blank = " ";
    constexpr std::string_view UnbreakableBlank = "\xC2\xA0";
    // Until nothing goes any more: the two kinds of blanks may stand mixed.
    for (std::size_t before = text.size() + 1; before > text.size();) {
        before = text.size();
        for (const std::string_view blank : {Blank, UnbreakableBlank}) {
            if (text.starts_with(blank)) text.remove_prefix(blank.size());
            if (text.ends_with(blank)) text.remove_suffix(blank.size());
        }
    }
    return text;
}

std::string withoutBreaks(std::string text) {
    for (char& c : text)
        if (c == '\t' || c == '\r' || c == '\n') c = ' ';
    return text;
}

std::string inQuotes(std::string_view text) {
    constexpr std::size_t Longest = 40;
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
    std::size_t length = std::min(text.size(), Longest);
    // Not inside a character of UTF-8.
    while (length < text.size() && length > 0 && continues(text[length])) --length;
    return "'" + std::string(text.substr(0, length)) + (length < text.size() ? "…'" : "'");
}

}  // namespace tables
