#pragma once
// The values that an element holds, as texts to be compared and shown.

#include "comparing/Comparison.hpp"

#include <string>
#include <tuple>
#include <vector>

namespace comparing {

struct Value {
    ChangeKind kind = ChangeKind::Attribute;
    std::u16string set, name;  ///< The set of a property; the label of a classification is its name.
    unsigned occurrence = 0;   ///< How many of the same kind, set and name stand before it.
    std::string shown;         ///< As an export gives it.
    std::string exact;         ///< As an update asks for it: reads back to the same value.
    model::PropertyKind propertyKind = model::PropertyKind::Single;
    bool plain = true;  ///< A value that one text can stand for.

    bool rounded = false;  ///< `shown` is a number that is only nearly the value.

    auto key() const { return std::tie(kind, set, name, occurrence); }
    /// What is compared, and what people are shown.
    const std::string& text() const { return rounded ? exact : shown; }
    bool same(const Value& other) const { return text() == other.text() && propertyKind == other.propertyKind; }
};

/// Those of one kind, which is not Other: attributes in schema order without the GlobalId, properties and
/// classifications in the host's order.
model::Result<std::vector<Value>> valuesOf(const model::Model& model, model::Element element, ChangeKind kind);

/// "FireRating[WallCommon]": what an update calls it.
std::string itemOf(const Value& value);

}  // namespace comparing
