#include "model/step/syntax/Numbers.hpp"
#include "model/step/syntax/Value.hpp"

#include <array>
#include <charconv>
#include <cmath>

namespace model::step {

namespace {

/// from_chars takes no plus sign.
std::string_view withoutPlus(std::string_view text) {
    return text.starts_with('+') ? text.substr(1) : text;
}

/// from_chars reports numbers too small for a double like those too large; the former are zero.
bool tooSmall(std::string_view digits) {
    const std::size_t exponent = digits.find_first_of("Ee");
    if (exponent != std::string_view::npos) return digits.substr(exponent + 1).starts_with('-');
    return digits.substr(0, digits.find('.')).find_first_of("123456789") == std::string_view::npos;
}

/// Digits with a decimal exponent, as a person would write the number: without an exponent as long as the zeros that
/// takes can be counted at a glance.
std::string shortestDecimal(double value) {
    std::array<char, 64> buffer{};
    const double size = std::fabs(value);
    const bool plain = size == 0.0 || (size >= 1e-4 && size < 1e16);
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   plain ? std::chars_format::fixed : std::chars_format::scientific);
    return {buffer.data(), end.ptr};
}

}  // namespace

std::optional<std::int64_t> integerValue(Value value) {
    if (value.kind != ValueKind::Integer) return std::nullopt;
    const std::string_view digits = withoutPlus(value.text);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc{} || end != digits.data() + digits.size()) return std::nullopt;
    return number;
}

std::optional<double> realValue(Value value) {
    if (value.kind != ValueKind::Real && value.kind != ValueKind::Integer) return std::nullopt;
    const std::string_view digits = withoutPlus(value.text);
    double number = 0.0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error == std::errc::result_out_of_range && tooSmall(digits)) return digits.starts_with('-') ? -0.0 : 0.0;
    if (error != std::errc{} || end != digits.data() + digits.size() || !std::isfinite(number)) return std::nullopt;
    return number;
}

std::string displayReal(double value) {
    return shortestDecimal(value);
}

std::string encodeReal(double value) {
    std::string text = shortestDecimal(value);
    const std::size_t exponent = text.find('e');
    const std::size_t mantissaEnd = exponent == std::string::npos ? text.size() : exponent;
    if (exponent != std::string::npos) text[exponent] = 'E';
    if (text.find('.') == std::string::npos) text.insert(mantissaEnd, 1, '.');
    return text;
}

}  // namespace model::step
