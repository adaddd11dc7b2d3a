#include "console/output/SafeText.hpp"

#include "console/output/Characters.hpp"

#include <fmt/format.h>

namespace console {
namespace {

constexpr std::int32_t ReplacementCharacter = 0xFFFD;

bool isControl(std::int32_t c) {
    return c < 0x20 || (c >= 0x7F && c <= 0x9F);
}

/// Line and paragraph separators, and the embeddings, overrides and isolates that reorder what a person reads.
bool changesLayout(std::int32_t c) {
    return c == 0x2028 || c == 0x2029 || (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

std::int32_t picture(std::int32_t c) {
    if (c < 0) return ReplacementCharacter;
    if (c < 0x20) return 0x2400 + c;
    if (c == 0x7F) return 0x2421;
    return isControl(c) || changesLayout(c) ? ReplacementCharacter : c;
}

void appendEscaped(std::string& text, std::int32_t c) {
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
                appendCharacter(text, c < 0 ? ReplacementCharacter : c);
    }
}

template <class Consumer>
void forEachCharacter(std::string_view utf8, const Consumer& consume) {
    for (std::size_t at = 0; at < utf8.size();) consume(nextCharacter(utf8, at));
}

}  // namespace

std::string visible(std::string_view utf8) {
    std::string result;
    result.reserve(utf8.size());
    forEachCharacter(utf8, [&result](std::int32_t c) { appendCharacter(result, picture(c)); });
    return result;
}

std::string escaped(std::string_view utf8) {
    std::string result;
    result.reserve(utf8.size());
    forEachCharacter(utf8, [&result](std::int32_t c) { appendEscaped(result, c); });
    return result;
}

}  // namespace console
