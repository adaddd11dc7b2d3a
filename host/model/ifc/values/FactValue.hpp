#pragma once
// A value of the file as elements are chosen by it: typed like the file's, and nothing more than a simple value.

#include "model/ifc/schema/Schema.hpp"
#include "model/step/syntax/Value.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace model::ifc {

struct FactValue {
    enum class Kind : std::uint8_t {
        None,  ///< There is no value.
        Text,  ///< Also an enumeration's item, and a logical's unknown as "UNKNOWN".
        Integer,
        Real,
        Truth,  ///< `integer` is 1 or 0.
        Other,  ///< A reference, a table: something that no simple value equals.
    };

    Kind kind = Kind::None;
    std::int64_t integer = 0;
    double real = 0;
    std::u16string text;
};

/// What an item says: one value, several of a list. Never empty: without a value it is one of Kind::None.
using FactValues = std::vector<FactValue>;

FactValues noValue();
FactValues otherValue();
FactValues textValue(std::u16string content);

/// An argument by the declared type of its attribute. Aggregates of simple values give several.
FactValues attributeValues(step::Value argument, BaseType base);

/// A value that may say its type itself, or a list of these: a property's.
FactValues propertyValues(step::Value argument, const Schema& schema);

}  // namespace model::ifc
