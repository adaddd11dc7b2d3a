#include "report/HtmlText.hpp"

#include "text/Unicode.hpp"

namespace report {

namespace {

constexpr text::Character ControlPictures = 0x2400;

/// A name that turns the direction of what follows could make "old" look like "new".
bool turnsDirection(text::Character character) {
    return (character >= 0x202A && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069) ||
           character == 0x200E || character == 0x200F || character == 0x061C;
}

/// HTML allows no C1 control and none of the noncharacters.
bool isAllowed(text::Character character) {
    const bool noncharacter = (character >= 0xFDD0 && character <= 0xFDEF) || (character & 0xFFFE) == 0xFFFE;
    return !noncharacter && !(character >= 0x7F && character <= 0x9F);
}

text::Character shown(text::Character character) {
    if (character == text::NoCharacter) return text::ReplacementCharacter;
    if (character < 0x20 && character != '\n') return ControlPictures + character;
    return isAllowed(character) && !turnsDirection(character) ? character : text::ReplacementCharacter;
}

}  // namespace

void appendText(std::string_view utf8, std::string& html) {
    for (std::size_t at = 0; at < utf8.size();) {
        const text::Character character = shown(text::nextCharacter(utf8, at));
        switch (character) {
            case '&':
                html += "&amp;";
                break;
            case '<':
                html += "&lt;";
                break;
            case '>':
                html += "&gt;";
                break;
            case '"':
                html += "&quot;";
                break;
            default:
                text::appendCharacter(html, character);
        }
    }
}

}  // namespace report
