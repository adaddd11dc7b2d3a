#include "readback/AskedText.hpp"

#include "text/Ascii.hpp"
#include "text/Unicode.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>

namespace readback {

namespace {

constexpr std::size_t LongestLabel = 255;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view withoutSign(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    return text;
}

std::size_t digitCount(std::string_view text) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isDigit) - text.begin());
}

/// "12", "12.5", "12.", ".5", each with an exponent or without.
bool isDecimal(std::string_view text) {
    text = withoutSign(text);
    const std::size_t before = digitCount(text);
    text.remove_prefix(before);
    std::size_t behind = 0;
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        behind = digitCount(text);
        text.remove_prefix(behind);
    }
    if (before + behind == 0) return false;
    if (!text.starts_with('e') && !text.starts_with('E')) return text.empty();
    text = withoutSign(text.substr(1));
    return !text.empty() && digitCount(text) == text.size();
}

bool isDigitsOnly(std::string_view text) {
    text = withoutSign(text);
    return digitCount(text) == text.size();
}

/// A leading zero or a plus is a part of a number that is a name: 007, +49171.
bool isPlainInteger(std::string_view text) {
    const std::string_view digits = text.starts_with('-') ? text.substr(1) : text;
    return wholeInteger(text) && !text.starts_with('+') && (digits == "0" || !digits.starts_with('0'));
}

}  // namespace

std::optional<std::int64_t> wholeInteger(std::string_view text) {
    const std::string_view digits = withoutSign(text);
    if (digits.empty() || digitCount(digits) != digits.size()) return std::nullopt;
    if (text.starts_with('+')) text.remove_prefix(1);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() ? std::optional(number) : std::nullopt;
}

std::optional<double> wholeReal(std::string_view text, DecimalSign sign) {
    std::string decimal(text);
    // Beside a point, or several times, a comma may stand between thousands.
    if (sign == DecimalSign::Comma && decimal.find('.') == std::string::npos &&
        std::count(decimal.begin(), decimal.end(), ',') == 1)
        decimal[decimal.find(',')] = '.';
    if (!isDecimal(decimal)) return std::nullopt;
    const char* begin = decimal.data() + (decimal.front() == '+' ? 1 : 0);
    double number = 0;
    const auto [end, error] = std::from_chars(begin, decimal.data() + decimal.size(), number);
    return error == std::errc() && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<Truth> truthValue(std::string_view text) {
    static constexpr std::array<std::pair<std::string_view, Truth>, 10> Words{{{"true", Truth::True},
                                                                               {".t.", Truth::True},
                                                                               {"yes", Truth::True},
                                                                               {"1", Truth::True},
                                                                               {"false", Truth::False},
                                                                               {".f.", Truth::False},
                                                                               {"no", Truth::False},
                                                                               {"0", Truth::False},
                                                                               {"unknown", Truth::Unknown},
                                                                               {".u.", Truth::Unknown}}};
    const std::string lower = text::toLowerCase(text);
    const auto* found = std::find_if(Words.begin(), Words.end(), [&](const auto& word) { return word.first == lower; });
    return found == Words.end() ? std::nullopt : std::optional(found->second);
}

bool isDate(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return false;
    const auto year = wholeInteger(text.substr(0, 4));
    const auto month = wholeInteger(text.substr(5, 2));
    const auto day = wholeInteger(text.substr(8, 2));
    // The first digits are looked at since wholeInteger() takes signs.
    if (!year || !month || !day || !isDigit(text[0]) || !isDigit(text[5]) || !isDigit(text[8])) return false;
    return std::chrono::year_month_day(std::chrono::year(static_cast<int>(*year)),
                                       std::chrono::month(static_cast<unsigned>(*month)),
                                       std::chrono::day(static_cast<unsigned>(*day)))
        .ok();
}

std::string_view typeByText(std::string_view text, DecimalSign sign) {
    const std::string lower = text::toLowerCase(text);
    if (lower == "true" || lower == "false" || lower == ".t." || lower == ".f.") return "IfcBoolean";
    if (isPlainInteger(text)) return "IfcInteger";
    if (!isDigitsOnly(text) && wholeReal(text, sign)) return "IfcReal";
    if (isDate(text)) return "IfcDate";
    return text::characterCount(text) > LongestLabel ? "IfcText" : "IfcLabel";
}

}  // namespace readback
