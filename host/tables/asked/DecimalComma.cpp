#include "tables/asked/DecimalComma.hpp"

#include "tables/reading/Values.hpp"

#include <algorithm>
#include <string>

namespace tables {
namespace {

/// Longer than any number that people write; what is longer is not looked at.
constexpr std::size_t LongestNumber = 64;
constexpr std::size_t GroupLength = 3;

bool isDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string_view withoutSign(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    return text;
}

/// "1.234.567": groups of three behind the first.
bool isGrouped(std::string_view text, char separator) {
    std::size_t end = text.find(separator);
    if (end > GroupLength || !isDigits(text.substr(0, end))) return false;
    while (end < text.size()) {
        const std::string_view group = text.substr(end + 1, GroupLength);
        if (group.size() != GroupLength || !isDigits(group)) return false;
        end += 1 + GroupLength;
        if (end < text.size() && text[end] != separator) return false;
    }
    return true;
}

/// Whether the text is a number in which the mark stands once as the decimal sign and could not stand between groups.
bool isDecimalWith(std::string_view text, char mark, char separator) {
    const std::size_t at = text.find(mark);
    if (at == std::string_view::npos || !isDigits(text.substr(at + 1))) return false;
    const std::string_view whole = text.substr(0, at);
    if (isGrouped(whole, separator)) return true;
    if (!isDigits(whole)) return false;
    const bool couldBeGroup = text.size() - at - 1 == GroupLength && whole.size() <= GroupLength && whole != "0";
    return !couldBeGroup;
}

}  // namespace

CommaEvidence commaEvidence(std::string_view text) {
    if (text.size() > LongestNumber) return CommaEvidence::None;
    text = withoutSign(text);
    if (isDecimalWith(text, ',', '.')) return CommaEvidence::Decimal;
    const bool severalGroups = std::count(text.begin(), text.end(), ',') > 1 && isGrouped(text, ',');
    return severalGroups || isDecimalWith(text, '.', ',') ? CommaEvidence::Grouping : CommaEvidence::None;
}

void CommaColumn::add(std::string_view text) {
    const CommaEvidence evidence = commaEvidence(text);
    if (evidence == CommaEvidence::Decimal) ++decimal_;
    if (evidence == CommaEvidence::Grouping) ++grouping_;
}

bool CommaColumn::showsDecimalComma(std::string_view text) const {
    if (text.size() > LongestNumber || grouping_ > 0) return false;
    const std::string_view number = withoutSign(text);
    const std::size_t comma = number.find(',');
    if (comma == std::string_view::npos || !isDigits(number.substr(0, comma)) || !isDigits(number.substr(comma + 1)))
        return false;
    // A text is no witness of its own.
    const std::uint64_t own = commaEvidence(text) == CommaEvidence::Decimal ? 1 : 0;
    return decimal_ > own;
}

std::optional<double> parseDecimal(std::string_view text, bool decimalComma) {
    if (text.empty() || text.size() > LongestNumber) return std::nullopt;
    std::string number(text);
    if (decimalComma) std::replace(number.begin(), number.end(), ',', '.');
    return parseNumber(number);
}

}  // namespace tables
