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

constexpr std::string_view GlobalIdDigits = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_$";
constexpr std::size_t GlobalIdLength = 22;

/// By character: the digit's value, or NoDigit. Every product's GlobalId is read when a file is opened.
constexpr std::uint8_t NoDigit = 0xFF;
constexpr auto DigitValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(NoDigit);
    for (std::size_t i = 0; i < GlobalIdDigits.size(); ++i) {
        values[static_cast<unsigned char>(GlobalIdDigits[i])] = static_cast<std::uint8_t>(i);
    }
    return values;
}();

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

// The 128 bits are cut from the top into one digit of 2 bits and 21 digits of 6 bits: after the first byte's two
// digits, each 3 bytes are 4 digits.

std::string toGlobalId(const GuidBytes& guid) {
    std::string text;
    text.reserve(GlobalIdLength);
    text += GlobalIdDigits[guid[0] >> 6U];
    text += GlobalIdDigits[guid[0] & 0x3FU];
    for (std::size_t i = 1; i < guid.size(); i += 3) {
        const std::uint32_t bits = static_cast<std::uint32_t>(guid[i] << 16U | guid[i + 1] << 8U | guid[i + 2]);
        for (unsigned shift = 24; shift > 0; shift -= 6) text += GlobalIdDigits[(bits >> (shift - 6U)) & 0x3FU];
    }
    return text;
}

std::optional<GuidBytes> fromGlobalId(std::string_view globalId) {
    if (globalId.size() != GlobalIdLength) return std::nullopt;
    std::array<std::uint32_t, GlobalIdLength> digits{};
    std::uint32_t all = 0;
    for (std::size_t i = 0; i < GlobalIdLength; ++i) {
        digits[i] = DigitValues[static_cast<unsigned char>(globalId[i])];
        all |= digits[i];
    }
    if (all == NoDigit || digits[0] > 3) return std::nullopt;
    GuidBytes guid{};
    guid[0] = static_cast<std::uint8_t>(digits[0] << 6U | digits[1]);
    for (std::size_t byte = 1, digit = 2; byte < guid.size(); byte += 3, digit += 4) {
        const std::uint32_t bits =
            digits[digit] << 18U | digits[digit + 1] << 12U | digits[digit + 2] << 6U | digits[digit + 3];
        guid[byte] = static_cast<std::uint8_t>(bits >> 16U);
        guid[byte + 1] = static_cast<std::uint8_t>(bits >> 8U);
        guid[byte + 2] = static_cast<std::uint8_t>(bits);
    }
    return guid;
}

}  // namespace text
