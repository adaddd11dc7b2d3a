#include "text/Unicode.hpp"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>

namespace text {

Character nextCharacter(std::string_view utf8, std::size_t& at) {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(utf8.data());
    const auto length = static_cast<std::int64_t>(utf8.size());
    auto position = static_cast<std::int64_t>(at);
    UChar32 character = 0;
    U8_NEXT(bytes, position, length, character);
    at = static_cast<std::size_t>(position);
    return character < 0 ? NoCharacter : character;
}

Character nextCharacter(std::u16string_view utf16, std::size_t& at) {
    const char16_t unit = utf16[at++];
    if (!U16_IS_SURROGATE(unit)) return unit;
    if (!U16_IS_SURROGATE_LEAD(unit) || at == utf16.size() || !U16_IS_TRAIL(utf16[at])) return NoCharacter;
    return static_cast<Character>(U16_GET_SUPPLEMENTARY(unit, utf16[at++]));
}

void appendCharacter(std::string& utf8, Character character) {
    std::uint8_t bytes[U8_MAX_LENGTH];
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, static_cast<std::uint32_t>(character));
    utf8.append(bytes, bytes + length);
}

void appendCharacter(std::u16string& utf16, Character character) {
    if (character > 0xFFFF) {
        utf16.push_back(static_cast<char16_t>(U16_LEAD(character)));
        utf16.push_back(static_cast<char16_t>(U16_TRAIL(character)));
    } else {
        utf16.push_back(static_cast<char16_t>(character));
    }
}

std::string toUtf8(std::u16string_view utf16) {
    std::string utf8;
    utf8.reserve(utf16.size());
    for (std::size_t at = 0; at < utf16.size();) {
        const char16_t unit = utf16[at];
        if (unit < 0x80) {
            utf8.push_back(static_cast<char>(unit));
            ++at;
            continue;
        }
        const Character character = nextCharacter(utf16, at);
        appendCharacter(utf8, character == NoCharacter ? ReplacementCharacter : character);
    }
    return utf8;
}

std::u16string fromUtf8(std::string_view utf8) {
    std::u16string utf16;
    utf16.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const Character character = nextCharacter(utf8, at);
        appendCharacter(utf16, character == NoCharacter ? ReplacementCharacter : character);
    }
    return utf16;
}

bool isWellFormed(std::string_view utf8) {
    for (std::size_t at = 0; at < utf8.size();) {
        if (nextCharacter(utf8, at) == NoCharacter) return false;
    }
    return true;
}

bool isWellFormed(std::u16string_view utf16) {
    for (std::size_t at = 0; at < utf16.size();) {
        if (nextCharacter(utf16, at) == NoCharacter) return false;
    }
    return true;
}

std::string wellFormed(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const Character character = nextCharacter(bytes, at);
        appendCharacter(utf8, character == NoCharacter ? ReplacementCharacter : character);
    }
    return utf8;
}

std::size_t characterCount(std::u16string_view utf16) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < utf16.size(); ++count) nextCharacter(utf16, at);
    return count;
}

std::size_t characterCount(std::string_view utf8) {
    const auto begins = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), begins));
}

}  // namespace text
