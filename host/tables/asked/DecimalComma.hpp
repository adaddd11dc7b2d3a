#pragma once
// Whether a comma in a column's numbers is the decimal sign. "1,234" alone says nothing: it may be a thousand.

#include <cstdint>
#include <optional>
#include <string_view>

namespace tables {

/// What one text says of its column.
enum class CommaEvidence : std::uint8_t { None, Decimal, Grouping };

/// "9,5", "0,125" and "1.234,56" say decimal; "9.5", "1,234,567" and "1,234.5" say grouping; all else says nothing.
CommaEvidence commaEvidence(std::string_view text);

/// The cells of one column.
class CommaColumn {
public:
    void add(std::string_view text);
    /// Whether the text is a number with one comma and the column's other cells show that it is the decimal sign: at
    /// least one says so, and none the opposite.
    bool showsDecimalComma(std::string_view text) const;

private:
    std::uint64_t decimal_ = 0;
    std::uint64_t grouping_ = 0;
};

/// The whole text as a decimal number; a comma counts as a point where it may.
std::optional<double> parseDecimal(std::string_view text, bool decimalComma);

}  // namespace tables
