#include "text/Guid.hpp"

namespace text {

namespace {

constexpr bool hyphenBefore(std::size_t byte) {
    return byte == 4 || byte == 6 || byte == 8 || byte == 10;
}

/// @return -1 for any other character.
constexpr int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

}  // namespace

std::array<char, GuidLength> guidCharacters(std::span<const std::uint8_t, 16> guid) {
    static constexpr char Digits[] = "0123456789ABCDEF";
    std::array<char, GuidLength> characters{};
    std::size_t at = 0;
    for (std::size_t i = 0; i < guid.size(); ++i) {
        if (hyphenBefore(i)) characters[at++] = '-';
        characters[at++] = Digits[guid[i] >> 4U];
        characters[at++] = Digits[guid[i] & 0xFU];
    }
    return characters;
}

std::string guidText(std::span<const std::uint8_t, 16> guid) {
    const auto characters = guidCharacters(guid);
    return {characters.data(), characters.size()};
}

std::optional<GuidBytes> parseGuid(std::string_view text) {
    if (text.size() != GuidLength) return std::nullopt;
    GuidBytes guid{};
    std::size_t at = 0;
    for (std::size_t i = 0; i < guid.size(); ++i) {
        if (hyphenBefore(i) && text[at++] != '-') return std::nullopt;
        const int high = hexDigit(text[at++]);
        const int low = hexDigit(text[at++]);
        if (high < 0 || low < 0) return std::nullopt;
        guid[i] = static_cast<std::uint8_t>(high * 16 + low);
    }
    return guid;
}

}  // namespace text
