#pragma once
// Cutting an instance of the clear-text encoding (ISO 10303-21) into its parts. All results are views of the text given
// and valid as long as it is.

#include "model/step/syntax/Value.hpp"

#include <vector>

namespace model::step {

/// An instance cut into its parts: "#12 = IFCWALL ( ... ) ;".
struct Instance {
    InstanceId id = 0;
    std::string_view keyword;      ///< As found, any case. Empty for a complex instance.
    std::vector<Value> arguments;  ///< Reused between calls to save allocations.
    bool complex = false;          ///< #1=(A(..)B(..)), the external mapping; its arguments are not split.
};

/// Cuts a whole instance. Blanks and comments may stand between any two tokens.
/// @return false where the text is not well formed; `out` is then not to be used.
bool splitInstance(std::string_view text, Instance& out);

/// The elements of an Aggregate. @return false where it is not well formed or no aggregate.
bool splitAggregate(Value aggregate, std::vector<Value>& out);

/// The keyword and the inner value of a Typed value. @return false where it is no such value, or where not exactly one
/// value stands in its parentheses.
bool splitTyped(Value typed, std::string_view& keyword, Value& inner);

/// The id of a Reference, 0 for anything else. Leading zeros name the same instance.
InstanceId referenceId(Value value);

/// The item of an Enumeration without its points; empty for anything else.
std::string_view enumerationItem(Value value);

}  // namespace model::step
