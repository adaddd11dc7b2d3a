#pragma once
// The review list as the add-on fills it: its eight columns and the texts in them. The host reads them as a person
// does; it never writes them.

#include <array>
#include <cstddef>
#include <string_view>

namespace updatefile::reviewlist {

/// Columns from 0. The dialog manager numbers a row's fields from 1.
inline constexpr std::size_t TickColumn = 0;
inline constexpr std::size_t ElementColumn = 1;
inline constexpr std::size_t TypeColumn = 2;
inline constexpr std::size_t GuidColumn = 3;
inline constexpr std::size_t PropertyColumn = 4;
inline constexpr std::size_t CurrentColumn = 5;
inline constexpr std::size_t NewColumn = 6;
inline constexpr std::size_t RemarksColumn = 7;
inline constexpr std::size_t ColumnCount = 8;

/// The tick column.
inline constexpr std::string_view Ticked = "[X]";
inline constexpr std::string_view Unticked = "[  ]";

/// Remarks after Apply: the whole text.
inline constexpr std::string_view Done = "Done";
inline constexpr std::string_view Error = "error!";

/// Remarks of the review: a row can have several, each with a blank before it.
inline constexpr std::string_view NotFound = "Property not found.";
inline constexpr std::string_view NoElement = "Element / Type not found.";
inline constexpr std::string_view SameValue = "Old and new values are the same.";

/// The classification systems of which the add-on makes a reference where an element has none.
inline constexpr std::array<std::string_view, 2> AddedSystems{"SpecSection Classification", "UniFormat Classification"};

}  // namespace updatefile::reviewlist
