#include "console/output/TerminalText.hpp"

#include "text/Unicode.hpp"

#include <fmt/format.h>
#include <unicode/uchar.h>

namespace console {
namespace {

constexpr std::string_view Ellipsis = "\xE2\x80\xA6";

bool isControl(text::Character c) {
    return c < 0x20 || (c >= 0x7F && c <= 0x9F);
}

/// Line and paragraph separators, and the embeddings, overrides and isolates that reorder what a person reads.
bool changesLayout(text::Character c) {
    return c == 0x2028 || c == 0x2029 || (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

text::Character picture(text::Character c) {
    if (c < 0) return text::ReplacementCharacter;
    if (c < 0x20) return 0x2400 + c;
    if (c == 0x7F) return 0x2421;
    return isControl(c) || changesLayout(c) ? text::ReplacementCharacter : c;
}

void appendEscaped(std::string& text, text::Character c) {
    switch (c) {
        case '\t':
            text += "\\t";
            break;
        case '\n':
            text += "\\n";
            break;
        case '\r':
            text += "\\r";
            break;
        case '\\':
            text += "\\\\";
            break;
        default:
            if (c >= 0 && isControl(c))
                text += fmt::format("\\u{:04X}", static_cast<unsigned>(c));
            else
                text::appendCharacter(text, c < 0 ? text::ReplacementCharacter : c);
    }
}

template <class Consumer>
void forEachCharacter(std::string_view utf8, const Consumer& consume) {
    for (std::size_t at = 0; at < utf8.size();) consume(text::nextCharacter(utf8, at));
}

bool takesNoColumn(text::Character c) {
    const auto category = U_MASK(u_charType(c));
    // A Hangul vowel or final consonant is drawn into the syllable that its initial consonant opened.
    return (category & (U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK)) != 0 || (c >= 0x1160 && c <= 0x11FF);
}

int characterWidth(text::Character c) {
    // The soft hyphen is a format character that terminals draw.
    if (c < 0 || c == 0xAD) return 1;
    if (takesNoColumn(c)) return 0;
    const int width = u_getIntPropertyValue(c, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

}  // namespace

std::string visible(std::string_view utf8) {
    std::string result;
    result.reserve(utf8.size());
    forEachCharacter(utf8, [&result](text::Character c) { text::appendCharacter(result, picture(c)); });
    return result;
}

std::string escaped(std::string_view utf8) {
    std::string result;
    result.reserve(utf8.size());
    forEachCharacter(utf8, [&result](text::Character c) { appendEscaped(result, c); });
    return result;
}

std::string tsvLine(const std::vector<std::string>& cells) {
    std::string line;
    for (const std::string& cell : cells) {
        if (&cell != &cells.front()) line += '\t';
        line += escaped(cell);
    }
    return line + '\n';
}

int displayWidth(std::string_view utf8) {
    int width = 0;
    for (std::size_t at = 0; at < utf8.size();) width += characterWidth(text::nextCharacter(utf8, at));
    return width;
}

std::string cutToWidth(std::string_view utf8, int width) {
    if (displayWidth(utf8) <= width) return std::string(utf8);
    if (width <= 0) return {};
    int used = 0;
    std::size_t kept = 0;
    for (std::size_t at = 0; at < utf8.size();) {
        used += characterWidth(text::nextCharacter(utf8, at));
        if (used > width - 1) break;
        kept = at;
    }
    return std::string(utf8.substr(0, kept)).append(Ellipsis);
}

}  // namespace console
