#pragma once
// The values that an element holds, as texts to be compared and shown.

#include "comparing/Comparison.hpp"

#include <functional>
#include <set>
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

/// Attributes in schema order without the GlobalId.
model::Result<std::vector<Value>> attributesOf(const model::Model& model, model::Element element);
/// In the host's order, as the properties below.
model::Result<std::vector<Value>> classificationsOf(const model::Model& model, model::Element element);

using Names = std::set<std::u16string, std::less<>>;

/// The properties whose names, up to a bracket, are wanted.
std::vector<Value> propertiesNamed(const model::Model& model, model::Element element, const Names& names);

/// The names of properties that may differ, which are few where most are shared: what both elements list alike is
/// passed over without a copy.
Names namesThatDiffer(const model::Model& a, model::Element inA, const model::Model& b, model::Element inB);

/// "FireRating[WallCommon]": what an update calls it.
std::string itemOf(const Value& value);

}  // namespace comparing
