#include "console/output/DisplayWidth.hpp"

#include "console/output/Characters.hpp"

#include <unicode/uchar.h>

namespace console {
namespace {

constexpr std::string_view Ellipsis = "\xE2\x80\xA6";

bool takesNoColumn(std::int32_t c) {
    const auto category = U_MASK(u_charType(c));
    // A Hangul vowel or final consonant is drawn into the syllable that its initial consonant opened.
    return (category & (U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK)) != 0 || (c >= 0x1160 && c <= 0x11FF);
}

int characterWidth(std::int32_t c) {
    // The soft hyphen is a format character that terminals draw.
    if (c < 0 || c == 0xAD) return 1;
    if (takesNoColumn(c)) return 0;
    const int width = u_getIntPropertyValue(c, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

}  // namespace

int displayWidth(std::string_view utf8) {
    int width = 0;
    for (std::size_t at = 0; at < utf8.size();) width += characterWidth(nextCharacter(utf8, at));
    return width;
}

std::string cutToWidth(std::string_view utf8, int width) {
    if (displayWidth(utf8) <= width) return std::string(utf8);
    if (width <= 0) return {};
    int used = 0;
    std::size_t kept = 0;
    for (std::size_t at = 0; at < utf8.size();) {
        used += characterWidth(nextCharacter(utf8, at));
        if (used > width - 1) break;
        kept = at;
    }
    return std::string(utf8.substr(0, kept)).append(Ellipsis);
}

}  // namespace console
