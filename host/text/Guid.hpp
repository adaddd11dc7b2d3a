#pragma once
// A GUID's two texts: 8-4-4-4-12 hexadecimal digits, whose order is that of its 16 bytes, and IFC's GlobalId.

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

/// The 22-character GlobalId (IfcGloballyUniqueId: IFC's own base-64 of the 16 bytes).
std::string toGlobalId(const GuidBytes& guid);
/// And back. Nothing where the text is no GlobalId: 22 characters of 0-9 A-Z a-z _ $, the first at most '3', since 22
/// digits of 6 bits would hold 132 bits and a GUID has 128.
std::optional<GuidBytes> fromGlobalId(std::string_view globalId);

}  // namespace text
