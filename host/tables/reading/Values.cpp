#include "tables/reading/Values.hpp"

#include "text/Ascii.hpp"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace tables {
namespace {

constexpr double SecondsOfDay = 86400;
/// 9999-12-31, counted from 1900.
constexpr double LastDay = 2958465;
/// The programs count a 29 February 1900 that there was not. Before it the count is one less.
constexpr std::int64_t FirstDayBehindTheGap = 60;

std::string twoDigits(std::int64_t number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string clockText(std::int64_t seconds) {
    return twoDigits(seconds / 3600) + ":" + twoDigits(seconds / 60 % 60) + ":" + twoDigits(seconds % 60);
}

std::string dayText(std::int64_t day, DayCount count) {
    using namespace std::chrono;
    sys_days first = count == DayCount::From1904 ? sys_days{1904y / January / 1} : sys_days{1899y / December / 30};
    if (count == DayCount::From1900 && day < FirstDayBehindTheGap) first += days{1};
    const year_month_day date{first + days{day}};
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return text.data();
}

/// The letters that say something: without quoted text, escaped and padding characters, colours and conditions. What
/// brackets hold counts where it is a duration, "[h]".
std::string lettersOf(std::string_view code) {
    std::string letters;
    for (std::size_t at = 0; at < code.size() && code[at] != ';'; ++at) {
        const char c = code[at];
        if (c == '"') {
            at = std::min(code.find('"', at + 1), code.size());
        } else if (c == '\\' || c == '_' || c == '*') {
            ++at;
        } else if (c == '[') {
            const std::size_t end = std::min(code.find(']', at), code.size());
            const std::string_view inside = code.substr(at + 1, end - at - 1);
            if (!inside.empty() && inside.find_first_not_of("hHmMsS") == std::string_view::npos) letters += "hs";
            at = end;
        } else {
            letters += text::lowerCase(c);
        }
    }
    return letters;
}

}  // namespace

std::optional<double> parseNumber(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number)) return std::nullopt;
    return number;
}

std::string numberText(double number) {
    constexpr double Large = 1e16;
    constexpr double Small = 1e-7;
    if (number == 0) return "0";
    const bool plain = std::abs(number) < Large && std::abs(number) >= Small;
    std::array<char, 64> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), number,
                                            plain ? std::chars_format::fixed : std::chars_format::scientific);
    return {text.data(), end};
}

std::optional<std::string> dateText(double days, DayCount count, bool timeOnly) {
    if (!(days >= 0) || days > LastDay) return std::nullopt;
    const auto seconds = static_cast<std::int64_t>(std::llround(days * SecondsOfDay));
    if (timeOnly) return clockText(seconds);
    const auto secondsOfDay = static_cast<std::int64_t>(SecondsOfDay);
    std::string text = dayText(seconds / secondsOfDay, count);
    if (seconds % secondsOfDay != 0) text += "T" + clockText(seconds % secondsOfDay);
    return text;
}

std::string dateText(std::string_view isoText) {
    isoText = isoText.substr(0, isoText.find('.'));
    if (isoText.ends_with('Z')) isoText.remove_suffix(1);
    constexpr std::string_view Midnight = "T00:00:00";
    if (isoText.ends_with(Midnight)) isoText.remove_suffix(Midnight.size());
    return std::string(isoText);
}

std::string durationText(std::string_view isoText) {
    constexpr std::string_view Beginning = "PT";
    std::array<std::int64_t, 3> parts{};
    constexpr std::string_view Units = "HMS";
    if (!isoText.starts_with(Beginning)) return std::string(isoText);
    for (std::size_t at = Beginning.size(); at < isoText.size();) {
        std::int64_t number = 0;
        const char* const first = isoText.data() + at;
        const auto [end, error] = std::from_chars(first, isoText.data() + isoText.size(), number);
        if (error != std::errc() || number < 0) return std::string(isoText);
        at = std::min(isoText.find_first_of(Units, at), isoText.size() - 1);
        const std::size_t unit = Units.find(isoText[at]);
        if (unit == std::string_view::npos) return std::string(isoText);
        parts[unit] = number;
        ++at;
    }
    return twoDigits(parts[0]) + ":" + twoDigits(parts[1]) + ":" + twoDigits(parts[2]);
}

NumberStyle styleOfFormat(std::string_view code) {
    const std::string letters = lettersOf(code);
    if (letters.find("general") != std::string::npos) return NumberStyle::Number;
    if (letters.find_first_of("yd") != std::string::npos) return NumberStyle::Date;
    if (letters.find_first_of("hs") != std::string::npos) return NumberStyle::Time;
    return letters.find('m') != std::string::npos ? NumberStyle::Date : NumberStyle::Number;
}

/// ECMA-376 numbers these formats and workbooks do not spell them out; some belong to East Asian languages.
NumberStyle styleOfBuiltIn(unsigned number) {
    const auto between = [number](unsigned first, unsigned last) { return number >= first && number <= last; };
    if (between(14, 17) || number == 22 || between(27, 31) || number == 36 || between(50, 58)) return NumberStyle::Date;
    return between(18, 21) || between(32, 35) || between(45, 47) ? NumberStyle::Time : NumberStyle::Number;
}

}  // namespace tables
