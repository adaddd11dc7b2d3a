#include "console/output/HostText.hpp"

#include "Guid.hpp"

#include <unicode/unistr.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <iterator>

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

std::int32_t nextCharacter(std::string_view utf8, std::size_t& at) {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(utf8.data());
    const auto length = static_cast<std::int64_t>(utf8.size());
    auto position = static_cast<std::int64_t>(at);
    UChar32 character = 0;
    U8_NEXT(bytes, position, length, character);
    at = static_cast<std::size_t>(position);
    return character;
}

void appendCharacter(std::string& utf8, std::int32_t character) {
    std::uint8_t bytes[U8_MAX_LENGTH];
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, static_cast<std::uint32_t>(character));
    utf8.append(bytes, bytes + length);
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

std::string guidText(const model::Guid& guid) {
    GS::Guid hostGuid;
    std::copy(guid.begin(), guid.end(), std::begin(hostGuid.bytes));
    return toUtf8(hostGuid.ToUniString());
}

std::optional<model::Guid> parseGuid(std::string_view text) {
    GS::Guid hostGuid;
    if (hostGuid.ConvertFromString(toUniString(text)) != NoError) return std::nullopt;
    model::Guid guid;
    std::copy(std::begin(hostGuid.bytes), std::end(hostGuid.bytes), guid.begin());
    return guid;
}

}  // namespace console
