#include "console/output/Characters.hpp"

#include <unicode/utf8.h>

namespace console {

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

}  // namespace console
