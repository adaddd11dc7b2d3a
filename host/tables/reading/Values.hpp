#pragma once
// Numbers and dates of workbooks as texts.

#include <optional>
#include <string>
#include <string_view>

namespace tables {

/// The whole text as a number: decimal, with a point or an exponent. Nothing for what is not finite.
std::optional<double> parseNumber(std::string_view text);

/// The shortest decimal form that reads back as the same number; with an exponent only for what is very large or very
/// small.
std::string numberText(double number);

/// Which day the number 0 is.
enum class DayCount : unsigned char { From1900, From1904 };

/// A day count with the time as its fraction, in the form "2024-05-17", with a time "2024-05-17T08:30:00".
/// @param timeOnly  the format shows no date: then "08:30:00", hours beyond 24 included.
/// @return nothing for what no calendar of the spreadsheet programs has.
std::optional<std::string> dateText(double days, DayCount count, bool timeOnly);

/// "2024-05-17T08:30:00.123456789" without the fraction, and without a time of 00:00:00.
std::string dateText(std::string_view isoText);

/// "PT08H30M00S" as "08:30:00"; any other text as it is.
std::string durationText(std::string_view isoText);

/// What a workbook's number format makes of a number.
enum class NumberStyle : unsigned char { Number, Date, Time };
NumberStyle styleOfFormat(std::string_view code);
/// For the formats that need no code.
NumberStyle styleOfBuiltIn(unsigned number);

}  // namespace tables
