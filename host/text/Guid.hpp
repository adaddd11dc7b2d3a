#pragma once
// A GUID's text: 8-4-4-4-12 hexadecimal digits. Its 16 bytes stand in the order of the text.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace text {

using GuidBytes = std::array<std::uint8_t, 16>;

constexpr std::size_t GuidLength = 36;

/// The text in upper case, without an allocation.
std::array<char, GuidLength> guidCharacters(std::span<const std::uint8_t, 16> guid);

/// "A32931C7-B3B2-4117-8D6A-3038DD4E9A78"
std::string guidText(std::span<const std::uint8_t, 16> guid);

/// Reads exactly 36 characters, the digits in either case. Nothing where they are anything else.
std::optional<GuidBytes> parseGuid(std::string_view text);

}  // namespace text
