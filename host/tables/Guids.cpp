#include "tables/Guids.hpp"

#include "tables/Text.hpp"
#include "text/Ascii.hpp"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tables {
namespace {

constexpr std::string_view Hexadecimal = "0123456789ABCDEF";
constexpr std::string_view Base64 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_$";
constexpr std::size_t GuidLength = 36;
constexpr std::size_t GlobalIdLength = 22;

bool isHyphenPlace(std::size_t at) {
    return at == 8 || at == 13 || at == 18 || at == 23;
}

std::optional<std::string> parseLongForm(std::string_view text) {
    std::string guid = text::toUpperCase(text);
    for (std::size_t at = 0; at < guid.size(); ++at) {
        const bool right = isHyphenPlace(at) ? guid[at] == '-' : Hexadecimal.find(guid[at]) != std::string_view::npos;
        if (!right) return std::nullopt;
    }
    return guid;
}

/// 128 bits from the top: one digit of 2 bits and 21 of 6. Cut into hexadecimal digits of 4.
std::optional<std::string> expand(std::string_view globalId) {
    std::string guid;
    std::uint32_t bits = 0;
    unsigned held = 0;
    for (std::size_t at = 0; at < globalId.size(); ++at) {
        const std::size_t digit = Base64.find(globalId[at]);
        if (digit == std::string_view::npos || (at == 0 && digit > 3)) return std::nullopt;
        bits = bits << 6U | static_cast<std::uint32_t>(digit);
        held += at == 0 ? 2 : 6;
        while (held >= 4) {
            if (isHyphenPlace(guid.size())) guid += '-';
            held -= 4;
            guid += Hexadecimal[bits >> held & 0xFU];
        }
    }
    return guid;
}

}  // namespace

bool namesGuids(std::string_view header) {
    const std::string_view name = trimmed(header);
    return text::equalIgnoringCase(name, "GUID") || text::equalIgnoringCase(name, "GlobalId");
}

std::optional<std::string> parseGuid(std::string_view text) {
    text = trimmed(text);
    if (text.size() == GuidLength + 2 && text.starts_with('{') && text.ends_with('}'))
        text = text.substr(1, GuidLength);
    if (text.size() == GuidLength) return parseLongForm(text);
    return text.size() == GlobalIdLength ? expand(text) : std::nullopt;
}

}  // namespace tables
