#pragma once
// Whether a value of the model is as a comparison asks.

#include "model/ifc/values/FactValue.hpp"
#include "selection/Syntax.hpp"

namespace selection {

/// A comparison made ready for many values. A number is compared with a number and equals no text: 60 is not "60 min".
/// Of texts only = and *= ask more than whether they are equal.
class Comparer {
public:
    explicit Comparer(const Comparison& comparison);

    /// Whether the comparison holds of any of the values; negated, whether it holds of none.
    bool holds(const model::ifc::FactValues& values) const { return any(values) != comparison_.negated; }
    /// The same without the negation, for who has several things to ask.
    bool any(const model::ifc::FactValues& values) const;
    bool negated() const { return comparison_.negated; }
    bool asksForNothing() const { return comparison_.special == Special::Null; }

private:
    bool holdsOf(const model::ifc::FactValue& value) const;
    bool holdsOfText(std::u16string_view text) const;
    bool comparesOrder() const;
    template <class Number>
    bool compare(Number value, const std::optional<Number>& wanted) const;

    const Comparison& comparison_;
    std::u16string text_;
    std::optional<std::int64_t> integer_;
    std::optional<double> real_;
};

}  // namespace selection
