#include "NarrowText.hpp"

#include "text/Unicode.hpp"

#include <unicode/ustring.h>
#include <unicode/utf16.h>

#include <cstdint>
#include <limits>
#include <new>

namespace frameworks {

namespace {

// Windows-1252 from 0x80 to 0x9F. From 0xA0 on a byte is its own code point. The five unassigned bytes (81, 8D, 8F, 90,
// 9D) stay the C1 control of the same number, so that no byte is ever lost.
constexpr char16_t Windows1252[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                      0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char16_t fromWindows1252(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? Windows1252[byte - 0x80] : char16_t{byte};
}

std::int32_t checkedLength(std::size_t length) {
    if (length >= static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) throw std::bad_alloc();
    return static_cast<std::int32_t>(length);
}

}  // namespace

std::size_t decodeNarrow(std::string_view bytes, char16_t* units) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        if (byte < 0x80) {
            units[count++] = byte;
            ++at;
            continue;
        }
        std::size_t next = at;
        const text::Character codePoint = text::nextCharacter(bytes, next);
        if (codePoint == text::NoCharacter) {
            units[count++] = fromWindows1252(byte);
            ++at;
        } else {
            U16_APPEND_UNSAFE(units, count, codePoint);
            at = next;
        }
    }
    return count;
}

icu::UnicodeString decodeNarrow(std::string_view bytes) {
    icu::UnicodeString result;
    if (bytes.empty()) return result;
    char16_t* const units = result.getBuffer(checkedLength(bytes.size()));
    if (units == nullptr) throw std::bad_alloc();
    // No sequence has more code units than bytes, so the number of bytes was room enough.
    result.releaseBuffer(static_cast<std::int32_t>(decodeNarrow(bytes, units)));
    return result;
}

std::size_t encodeNarrow(std::u16string_view units, char* target, std::size_t capacity) {
    std::int32_t needed = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strToUTF8WithSub(target, checkedLength(capacity), &needed, units.data(), checkedLength(units.size()), 0xFFFD,
                       nullptr, &status);
    return static_cast<std::size_t>(needed);
}

std::size_t sequenceLength(std::string_view bytes) {
    std::size_t at = 0;
    return bytes.empty() || text::nextCharacter(bytes, at) == text::NoCharacter ? 0 : at;
}

}  // namespace frameworks
