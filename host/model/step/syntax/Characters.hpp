#pragma once
// The character classes of the clear-text encoding (ISO 10303-21, tokens). ASCII only and independent of the locale.

#include "text/Ascii.hpp"

namespace model::step {

/// What separates tokens: the standard's own are the blank and line ends; tabs are common in files.
constexpr bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
constexpr bool isLineEnd(char c) {
    return c == '\n' || c == '\r';
}
constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
/// The standard has capitals only. "IfcWall(" occurs, and is read as it is meant.
constexpr bool isKeywordCharacter(char c) {
    return isLetter(c) || isDigit(c) || c == '_';
}
using text::equalIgnoringCase;
using text::toUpperCase;
using text::upperCase;

/// The value of a hexadecimal digit of either case, -1 for any other character.
constexpr int hexDigit(char c) {
    if (isDigit(c)) return c - '0';
    const char upper = upperCase(c);
    return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : -1;
}

}  // namespace model::step
