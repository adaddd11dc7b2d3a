#include "selection/Comparing.hpp"

#include "model/step/syntax/Numbers.hpp"
#include "text/Unicode.hpp"

#include <algorithm>
#include <charconv>

namespace selection {

namespace {

using model::ifc::FactValue;
using model::ifc::FactValues;

/// The whole text, a plus sign before it allowed.
template <class Number>
std::optional<Number> parseNumber(std::string_view text) {
    // from_chars takes no plus, and would take the minus of "+-1".
    if (text.starts_with('+') && !text.substr(1).starts_with('-')) text.remove_prefix(1);
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::u16string textOf(const FactValue& value) {
    switch (value.kind) {
        case FactValue::Kind::Integer:
            return text::fromUtf8(std::to_string(value.integer));
        case FactValue::Kind::Real:
            return text::fromUtf8(model::step::displayReal(value.real));
        case FactValue::Kind::Truth:
            return value.integer == 1 ? u"true" : u"false";
        default:
            return value.text;
    }
}

}  // namespace

Comparer::Comparer(const Comparison& comparison)
    : comparison_(comparison),
      text_(text::fromUtf8(comparison.value.text)),
      integer_(parseNumber<std::int64_t>(comparison.value.text)),
      real_(parseNumber<double>(comparison.value.text)) {}

bool Comparer::any(const FactValues& values) const {
    return std::any_of(values.begin(), values.end(), [this](const FactValue& value) { return holdsOf(value); });
}

bool Comparer::holdsOf(const FactValue& value) const {
    using Kind = FactValue::Kind;
    if (comparison_.special == Special::Null) return value.kind == Kind::None;
    if (comparison_.special != Special::None) {
        return value.kind == Kind::Truth && (value.integer == 1) == (comparison_.special == Special::True);
    }
    // Whatever is asked, what has no text is not it; the caller turns the answer round for "!=".
    if (value.kind == Kind::None || value.kind == Kind::Other) return false;
    if (comparison_.value.pattern) return comparison_.value.pattern->matches(textOf(value));
    switch (value.kind) {
        case Kind::Integer:
            // Whether 3 is more than 2.5 can be told; equal it only is to an integer.
            if (!integer_ && comparesOrder()) return compare(static_cast<double>(value.integer), real_);
            return compare(value.integer, integer_);
        case Kind::Truth:
            return compare(value.integer, integer_);
        case Kind::Real:
            return compare(value.real, real_);
        default:
            return holdsOfText(value.text);
    }
}

bool Comparer::holdsOfText(std::u16string_view text) const {
    return comparison_.what == Operator::Contains ? text.find(text_) != std::u16string_view::npos : text == text_;
}

template <class Number>
bool Comparer::compare(Number value, const std::optional<Number>& wanted) const {
    if (!wanted) return false;
    switch (comparison_.what) {
        case Operator::Greater:
            return value > *wanted;
        case Operator::GreaterOrEqual:
            return value >= *wanted;
        case Operator::Less:
            return value < *wanted;
        case Operator::LessOrEqual:
            return value <= *wanted;
        default:
            break;
    }
    return value == *wanted;
}

bool Comparer::comparesOrder() const {
    return comparison_.what != Operator::Equal && comparison_.what != Operator::Contains;
}

}  // namespace selection
