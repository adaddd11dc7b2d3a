#pragma once
// Tables out: what is exported, filled in by people, and read again by Reading.hpp. Workbooks and delimited text are
// written by the two sources of the folder writing.

#include "tables/Result.hpp"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tables {

/// A header and the lines below it. A column whose header begins with "#" is for the reader: no import looks at it.
struct Grid {
    std::vector<std::string> columns;            ///< The first one is "GUID".
    std::vector<std::vector<std::string>> rows;  ///< Each with as many cells as there are columns.
};

/// The columns of the two layouts. Behind those of a grid come the items.
inline constexpr const char* GridColumns[] = {"GUID", "#Storey", "#Class", "#Type", "#Name"};
inline constexpr const char* LongListColumns[] = {"GUID", "Item", "Old", "New"};

/// UTF-8 without mark, LF behind each line; a field with the delimiter, a quote, a line end or a blank at an end stands
/// in quotes. Texts are exact: one that begins with "=" stays one, though a spreadsheet program that opens the file may
/// take it for a formula. Who passes tables of strangers on to such a program chooses a workbook.
std::string writeDelimited(const Grid& grid, char delimiter);

/// An .xlsx as bytes; the same grid gives the same bytes. The sheet "updates" has a frozen and filtered header, the
/// columns for the reader grey. Every cell is a text and stays one when it is edited, so that 007 stays 007; none is a
/// formula.
/// @param keepExported  the hidden sheet "exported" has the same grid, to compare with at import.
/// Fails for more rows or columns than a sheet has, for a text that no cell holds, and where no temporary file can be
/// written.
Result<std::string> writeWorkbook(const Grid& grid, bool keepExported);

}  // namespace tables
