#include "model/base/GlobalId.hpp"

namespace model {

namespace {

constexpr std::string_view Digits = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_$";
constexpr std::size_t GlobalIdLength = 22;

/// By character: the digit's value, or NoDigit. Every product's GlobalId is read when a file is opened.
constexpr std::uint8_t NoDigit = 0xFF;
constexpr auto DigitValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(NoDigit);
    for (std::size_t i = 0; i < Digits.size(); ++i) {
        values[static_cast<unsigned char>(Digits[i])] = static_cast<std::uint8_t>(i);
    }
    return values;
}();

}  // namespace

// The 128 bits are cut from the top into one digit of 2 bits and 21 digits of 6 bits: after the first byte's two
// digits, each 3 bytes are 4 digits.

std::string toGlobalId(const Guid& guid) {
    std::string text;
    text.reserve(GlobalIdLength);
    text += Digits[guid[0] >> 6U];
    text += Digits[guid[0] & 0x3FU];
    for (std::size_t i = 1; i < guid.size(); i += 3) {
        const std::uint32_t bits = static_cast<std::uint32_t>(guid[i] << 16U | guid[i + 1] << 8U | guid[i + 2]);
        for (unsigned shift = 24; shift > 0; shift -= 6) text += Digits[(bits >> (shift - 6U)) & 0x3FU];
    }
    return text;
}

std::optional<Guid> fromGlobalId(std::string_view globalId) {
    if (globalId.size() != GlobalIdLength) return std::nullopt;
    std::array<std::uint32_t, GlobalIdLength> digits{};
    std::uint32_t all = 0;
    for (std::size_t i = 0; i < GlobalIdLength; ++i) {
        digits[i] = DigitValues[static_cast<unsigned char>(globalId[i])];
        all |= digits[i];
    }
    if (all == NoDigit || digits[0] > 3) return std::nullopt;
    Guid guid{};
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

}  // namespace model
