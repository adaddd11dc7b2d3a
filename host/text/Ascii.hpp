#pragma once
// ASCII letters, independent of the locale. Every other byte stays what it is, so all of it is safe on UTF-8.

#include <algorithm>
#include <string>
#include <string_view>

namespace text {

constexpr char upperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

inline std::string toUpperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) c = upperCase(c);
    return upper;
}

constexpr char lowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline std::string toLowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) c = lowerCase(c);
    return lower;
}

/// Whether two texts differ in the case of ASCII letters at most.
constexpr bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return upperCase(x) == upperCase(y); });
}

}  // namespace text
