#include "console/output/TerminalText.hpp"

#include "text/Unicode.hpp"

#include <fmt/format.h>
#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <iterator>

namespace console {
namespace {

constexpr std::string_view Ellipsis = "\xE2\x80\xA6";

bool isControl(text::Character c) {
    return c < 0x20 || (c >= 0x7F && c <= 0x9F);
}

/// Line and paragraph separators; marks, embeddings, overrides and isolates of the writing direction; and characters
/// without a width that no writing needs.
bool misleadsReader(text::Character c) {
    return c == 0x061C || c == 0x200B || c == 0x200E || c == 0x200F || (c >= 0x2028 && c <= 0x202E) ||
           (c >= 0x2060 && c <= 0x206F) || c == 0xFEFF;
}

/// Everything that a person cannot see, whether a writing needs it or not.
bool isUnseen(text::Character c) {
    return misleadsReader(c) || u_charType(c) == U_FORMAT_CHAR;
}

text::Character picture(text::Character c) {
    if (c < 0) return text::ReplacementCharacter;
    if (c < 0x20) return 0x2400 + c;
    if (c == 0x7F) return 0x2421;
    return isControl(c) || misleadsReader(c) ? text::ReplacementCharacter : c;
}

bool isPlainAscii(char c) {
    return c >= 0x20 && c < 0x7F;
}

/// Takes runs of plain ASCII as they are, quotes and backslashes excepted, and hands on every other character. Most
/// texts are one such run, and the look at each character's properties would cost ten times as much.
template <class Consumer>
void appendEach(std::string& text, std::string_view utf8, const Consumer& consume) {
    const auto isPlain = [](char c) { return isPlainAscii(c) && c != '"' && c != '\\'; };
    for (std::size_t at = 0; at < utf8.size();) {
        const auto* const begin = utf8.data() + at;
        const auto* const end = std::find_if_not(begin, utf8.data() + utf8.size(), isPlain);
        text.append(begin, end);
        at += static_cast<std::size_t>(end - begin);
        if (at < utf8.size()) consume(text::nextCharacter(utf8, at));
    }
}

/// Above U+FFFF as the two halves of UTF-16, as JSON writes it.
void appendUnicodeEscape(std::string& text, text::Character c) {
    if (c > 0xFFFF) {
        fmt::format_to(std::back_inserter(text), "\\u{:04X}\\u{:04X}", static_cast<unsigned>(U16_LEAD(c)),
                       static_cast<unsigned>(U16_TRAIL(c)));
    } else {
        fmt::format_to(std::back_inserter(text), "\\u{:04X}", static_cast<unsigned>(c));
    }
}

/// The letter of a short escape such as "\n"; zero where there is none.
char escapeLetter(text::Character c) {
    switch (c) {
        case '\t':
            return 't';
        case '\n':
            return 'n';
        case '\r':
            return 'r';
        case '\\':
            return '\\';
        default:
            return '\0';
    }
}

void appendEscaped(std::string& text, text::Character c, bool mustEscape) {
    if (const char letter = escapeLetter(c); letter != '\0') {
        text.append({'\\', letter});
    } else if (mustEscape) {
        appendUnicodeEscape(text, c);
    } else {
        text::appendCharacter(text, c < 0 ? text::ReplacementCharacter : c);
    }
}

bool takesNoColumn(text::Character c) {
    const auto category = U_MASK(u_charType(c));
    // A Hangul vowel or final consonant is drawn into the syllable that its initial consonant opened.
    return (category & (U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK)) != 0 || (c >= 0x1160 && c <= 0x11FF);
}

int characterWidth(text::Character c) {
    // The soft hyphen is a format character that terminals draw.
    if (c < 0 || isPlainAscii(static_cast<char>(std::min(c, 0x7F))) || c == 0xAD) return 1;
    if (takesNoColumn(c)) return 0;
    const int width = u_getIntPropertyValue(c, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

template <class Cells>
std::string lineOf(const Cells& cells, const Terminal& terminal) {
    std::string line;
    for (const std::string& cell : cells) line.append(escaped(cell, terminal)).append("\t");
    // The last TAB becomes the line end.
    line.back() = '\n';
    return line;
}

}  // namespace

void appendVisible(std::string& text, std::string_view utf8) {
    appendEach(text, utf8, [&text](text::Character c) { text::appendCharacter(text, picture(c)); });
}

std::string visible(std::string_view utf8) {
    std::string result;
    appendVisible(result, utf8);
    return result;
}

std::string visibleLines(std::string_view utf8) {
    std::string text;
    while (!utf8.empty()) {
        const std::size_t length = std::min(utf8.find_first_of("\t\n"), utf8.size());
        appendVisible(text, utf8.substr(0, length));
        text += utf8.substr(length, 1);
        utf8.remove_prefix(std::min(length + 1, utf8.size()));
    }
    return text;
}

std::string escaped(std::string_view utf8, const Terminal& terminal) {
    std::string result;
    appendEach(result, utf8, [&result, &terminal](text::Character c) {
        appendEscaped(result, c, c >= 0 && (isControl(c) || (terminal.present && isUnseen(c))));
    });
    return result;
}

std::string tsvLine(const std::vector<std::string>& cells, const Terminal& terminal) {
    return lineOf(cells, terminal);
}

std::string tsvLine(const std::vector<importing::SharedText>& cells, const Terminal& terminal) {
    return lineOf(cells, terminal);
}

void appendJsonString(std::string& json, std::string_view utf8) {
    json += '"';
    appendEach(json, utf8, [&json](text::Character c) {
        if (c == '"') {
            json += "\\\"";
        } else {
            appendEscaped(json, c, c >= 0 && (isControl(c) || isUnseen(c)));
        }
    });
    json += '"';
}

int displayWidth(std::string_view utf8, int most) {
    int width = 0;
    for (std::size_t at = 0; at < utf8.size() && width < most;)
        width += characterWidth(picture(text::nextCharacter(utf8, at)));
    return std::min(width, most);
}

std::string cutToWidth(std::string_view utf8, int width) {
    if (width <= 0) return {};
    std::string text;
    int used = 0;
    std::size_t kept = 0;
    for (std::size_t at = 0; at < utf8.size();) {
        const text::Character c = picture(text::nextCharacter(utf8, at));
        used += characterWidth(c);
        if (used > width) return text.substr(0, kept).append(Ellipsis);
        text::appendCharacter(text, c);
        // One column is kept for the ellipsis.
        if (used < width) kept = text.size();
    }
    return text;
}

}  // namespace console
