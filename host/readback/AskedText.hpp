#pragma once
// The texts that people write for numbers, truth values and dates, read as a whole: *12abc* is no number here.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace readback {

/// The sign before the decimals in the table that a text came from.
enum class DecimalSign : std::uint8_t { Point, Comma };

/// false, unknown, true: the codes of a logical value.
enum class Truth : std::uint8_t { False = 0, Unknown = 1, True = 2 };

/// Digits behind an optional sign, within 64 bits.
std::optional<std::int64_t> wholeInteger(std::string_view text);

/// A decimal number: optional sign, digits with at most one point, optional exponent, within the range of a double.
/// With DecimalSign::Comma one comma may stand for the point.
std::optional<double> wholeReal(std::string_view text, DecimalSign sign);

/// true .T. yes 1, false .F. no 0, unknown .U., in any case.
std::optional<Truth> truthValue(std::string_view text);

/// YYYY-MM-DD, a day that there is.
bool isDate(std::string_view text);

/// The type of a new property's value by the whole text: IfcBoolean (true, false, .T., .F.), IfcInteger (no leading
/// zero, no plus), IfcReal, IfcDate, else IfcLabel, or IfcText above the 255 characters of a label. *yes* and *1* are
/// no truth values here: as likely they are a text and a number.
std::string_view typeByText(std::string_view text, DecimalSign sign);

}  // namespace readback
