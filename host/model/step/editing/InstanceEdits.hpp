#pragma once
// Changing a part of an instance's text and leaving the rest as found: blanks, comments and spelling stay.

#include "model/base/Result.hpp"
#include "model/step/syntax/Value.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace model::step {

/// @param value  a view into `text`.
Result<std::string> withValue(std::string_view text, Value value, std::string_view newText);
/// What stands between the last two elements of a list, so that a list of one element a line stays one.
std::string_view separatorIn(const std::vector<Value>& elements);
/// `text` without the elements marked, and without one comma for each of them.
/// @param elements  Those of a list in `text`, not empty.
std::string withoutMarked(std::string_view text, const std::vector<Value>& elements, const std::vector<bool>& marked);

/// "KEYWORD(...)" as a new instance has it.
bool isInstanceBody(std::string_view body, std::string_view& keyword);

}  // namespace model::step
