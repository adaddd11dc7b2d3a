#include "console/output/Text.hpp"

#include "console/output/Characters.hpp"

#include <unicode/unistr.h>
#include <unicode/utf16.h>

#include <algorithm>

namespace console {
namespace {

constexpr std::int32_t ReplacementCharacter = 0xFFFD;

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::string toUtf8(std::u16string_view units) {
    std::string result;
    const icu::UnicodeString alias(false, units.data(), static_cast<int32_t>(units.size()));
    return alias.toUTF8String(result);
}

std::string wellFormed(std::string_view bytes) {
    std::string result;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::int32_t character = nextCharacter(bytes, at);
        appendCharacter(result, character < 0 ? ReplacementCharacter : character);
    }
    return result;
}

bool isWellFormed(std::u16string_view units) {
    for (std::size_t at = 0; at < units.size(); ++at) {
        if (!U16_IS_SURROGATE(units[at])) continue;
        const bool pair = U16_IS_SURROGATE_LEAD(units[at]) && at + 1 < units.size() && U16_IS_TRAIL(units[at + 1]);
        if (!pair) return false;
        ++at;
    }
    return true;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lower(x) == lower(y); });
}

}  // namespace console
