#pragma once
// A row's text and its cells: the parts between TABs, numbered from 1.

#include "UniString.hpp"

#include <optional>
#include <string>

namespace frameworks {

/// @return the cell's text, a part of `row`; nothing where the row has not so many.
std::optional<std::u16string_view> cellOf(std::u16string_view row, Int16 field);

/// Replaces a cell's text. A row of too few cells gets empty ones up to `field`, which is positive.
void setCell(GS::UniString& row, Int16 field, const GS::UniString& text);

}  // namespace frameworks
