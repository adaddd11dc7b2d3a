// GS::UniString::SScanf. The C library's functions are kept out: they follow the locale and take "inf", "nan" and
// hexadecimal reals for numbers, which in a model are words.

#include "UniString.hpp"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

namespace GS {

namespace {

bool isBlank(char16_t unit) {
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

bool isDecimalDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

int digitValue(char16_t unit) {
    if (isDecimalDigit(unit)) return unit - u'0';
    if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
    if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
    return 16;
}

bool isDigit(char16_t unit, int base) {
    return digitValue(unit) < base;
}

/// Walks over a text; past its end it sees zero units.
class Cursor {
public:
    explicit Cursor(std::u16string_view units) : rest_(units) {}

    char16_t peek(std::size_t ahead = 0) const { return ahead < rest_.size() ? rest_[ahead] : u'\0'; }
    void skip(std::size_t count) { rest_.remove_prefix(count); }
    void skipBlanks() {
        while (isBlank(peek())) skip(1);
    }
    /// @return true for a minus.
    bool skipSign() {
        const bool negative = peek() == u'-';
        if (negative || peek() == u'+') skip(1);
        return negative;
    }

private:
    std::u16string_view rest_;
};

/// Skips a prefix of the base. "0x" without a digit behind it leaves none: it is the number 0.
int skipBase(Cursor& cursor) {
    if (cursor.peek() != u'0') return 10;
    if (cursor.peek(1) != u'x' && cursor.peek(1) != u'X') return 8;
    cursor.skip(2);
    return 16;
}

Int64 scanDigits(Cursor& cursor, int base, bool negative) {
    constexpr Int64 Least = std::numeric_limits<Int64>::min();
    // Counted downwards: the negative numbers reach one further than the positive ones.
    Int64 value = 0;
    bool overflow = false;
    for (; isDigit(cursor.peek(), base); cursor.skip(1)) {
        const int digit = digitValue(cursor.peek());
        overflow = overflow || value < (Least + digit) / base;
        if (!overflow) value = value * base - digit;
    }
    if (overflow) value = Least;
    if (negative) return value;
    return value == Least ? std::numeric_limits<Int64>::max() : -value;
}

void copyDigits(Cursor& cursor, std::string& target) {
    for (; isDecimalDigit(cursor.peek()); cursor.skip(1)) target += static_cast<char>(cursor.peek());
}

void copyExponent(Cursor& cursor, std::string& target) {
    if (cursor.peek() != u'e' && cursor.peek() != u'E') return;
    const std::size_t sign = cursor.peek(1) == u'-' || cursor.peek(1) == u'+' ? 1 : 0;
    if (!isDecimalDigit(cursor.peek(1 + sign))) return;
    target += cursor.peek(1) == u'-' ? "e-" : "e";
    cursor.skip(1 + sign);
    copyDigits(cursor, target);
}

/// Copies the number's characters, without its sign. @return empty where there is no digit.
std::string copyReal(Cursor& cursor) {
    std::string digits;
    copyDigits(cursor, digits);
    const bool digitBeforePoint = !digits.empty();
    if (cursor.peek() == u'.' && (digitBeforePoint || isDecimalDigit(cursor.peek(1)))) {
        cursor.skip(1);
        digits += '.';
        copyDigits(cursor, digits);
    }
    if (!digits.empty()) copyExponent(cursor, digits);
    return digits;
}

/// The value of a number that no double holds: infinite where it is too great, 0 where it is too small.
double outOfRange(std::string_view number) {
    const std::size_t exponentMark = std::min(number.find('e'), number.size());
    const std::string_view mantissa = number.substr(0, exponentMark);
    const auto point = static_cast<Int64>(std::min(mantissa.find('.'), mantissa.size()));
    const auto firstDigit = static_cast<Int64>(mantissa.find_first_of("123456789"));
    Int64 exponent = 0;
    if (exponentMark < number.size()) {
        const std::string_view digits = number.substr(exponentMark + 1);
        const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
        // Such an exponent outweighs any mantissa that fits in memory.
        if (parsed.ec != std::errc()) return digits.front() == '-' ? 0.0 : std::numeric_limits<double>::infinity();
    }
    // The place of the first digit that counts, in powers of ten, without overflow for an exponent near the limits.
    const bool great = exponent > firstDigit - point;
    return great ? std::numeric_limits<double>::infinity() : 0.0;
}

}  // namespace

int UniString::SScanf(const char* format, Int64* target) const {
    if (format == nullptr || target == nullptr || std::string_view(format) != "%i") return 0;
    Cursor cursor(View());
    cursor.skipBlanks();
    const bool negative = cursor.skipSign();
    if (!isDecimalDigit(cursor.peek())) return 0;
    const int base = skipBase(cursor);
    *target = scanDigits(cursor, base, negative);
    return 1;
}

int UniString::SScanf(const char* format, double* target) const {
    if (format == nullptr || target == nullptr || std::string_view(format) != "%f") return 0;
    Cursor cursor(View());
    cursor.skipBlanks();
    const bool negative = cursor.skipSign();
    const std::string number = copyReal(cursor);
    if (number.empty()) return 0;
    double value = 0.0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc::result_out_of_range) value = outOfRange(number);
    *target = negative ? -value : value;
    return 1;
}

}  // namespace GS
