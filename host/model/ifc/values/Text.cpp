#include "model/ifc/values/Text.hpp"

#include <unicode/unistr.h>
#include <unicode/utf16.h>

namespace model::ifc {

std::string toUtf8(std::u16string_view text) {
    std::string utf8;
    // A read-only alias: no copy of the UTF-16 text is made.
    icu::UnicodeString(false, text.data(), static_cast<std::int32_t>(text.size())).toUTF8String(utf8);
    return utf8;
}

std::u16string fromUtf8(std::string_view text) {
    const auto unicode = icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
    return {unicode.getBuffer(), static_cast<std::size_t>(unicode.length())};
}

std::size_t characterCount(std::u16string_view text) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++count) {
        const bool pair = U16_IS_LEAD(text[i]) && i + 1 < text.size() && U16_IS_TRAIL(text[i + 1]);
        i += pair ? 2 : 1;
    }
    return count;
}

bool hasLoneSurrogate(std::u16string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!U16_IS_SURROGATE(text[i])) continue;
        if (!U16_IS_LEAD(text[i]) || i + 1 == text.size() || !U16_IS_TRAIL(text[i + 1])) return true;
        ++i;
    }
    return false;
}

std::string inQuotes(std::u16string_view text) {
    constexpr std::size_t Longest = 60;
    std::size_t end = std::min(text.size(), Longest);
    if (end < text.size() && U16_IS_TRAIL(text[end])) --end;
    return '"' + toUtf8(text.substr(0, end)) + (end < text.size() ? "...\"" : "\"");
}

}  // namespace model::ifc
