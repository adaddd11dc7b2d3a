#include "updates/Text.hpp"

#include <fmt/format.h>
#include <unicode/utf8.h>

namespace updates {

bool isWellFormed(std::string_view bytes) {
    const auto* const units = reinterpret_cast<const std::uint8_t*>(bytes.data());
    const auto length = static_cast<std::int64_t>(bytes.size());
    for (std::int64_t at = 0; at < length;) {
        UChar32 character = 0;
        U8_NEXT(units, at, length, character);
        if (character < 0) return false;
    }
    return true;
}

std::string counted(std::uint64_t count, std::string_view noun) {
    return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

}  // namespace updates
