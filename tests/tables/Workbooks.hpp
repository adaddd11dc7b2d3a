#pragma once
// Workbooks by hand, right and wrong ones, and what was read from them as a text.

#include "tables/Asking.hpp"
#include "tables/Reading.hpp"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tables {

using Parts = std::vector<std::pair<std::string, std::string>>;

/// A zip of these entries, in this order.
std::string zipOf(const Parts& parts);

struct XlsxSheet {
    std::string name;
    std::string rows;         ///< What <sheetData> holds.
    std::string behind = {};  ///< What follows it, merged cells.
};

struct XlsxOptions {
    std::string strings = {};   ///< What <sst> holds.
    std::string styles = {};    ///< What <styleSheet> holds.
    std::string settings = {};  ///< <workbookPr ...>
};

Parts xlsxParts(const std::vector<XlsxSheet>& sheets, const XlsxOptions& options = {});
/// One sheet "Doors".
std::string xlsxOf(const std::string& rows, const XlsxOptions& options = {});

/// @param spreadsheet  what <office:spreadsheet> holds.
std::string odsOf(const std::string& spreadsheet);
/// One sheet "Doors".
std::string odsSheet(const std::string& rows);

ReadOptions cutBy(char delimiter);
ReadOptions ofSheet(const std::string& name);

/// "1: GUID | Name": line numbers and cells up to the last, with LF between the rows.
std::string shown(const Table& table);
/// The same of a file's bytes, or its error.
std::string shownOf(std::string_view bytes, const std::string& name, const ReadOptions& options = {});
/// The error, "no error" where there is none.
std::string errorOf(std::string_view bytes, const std::string& name, const ReadOptions& options = {});

inline constexpr const char* Door = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9";
inline constexpr const char* Window = "00E052B9-31DE-5336-8FEF-00E8C901C79A";
inline constexpr const char* WindowGlobalId = "00u5AvCTvJDe$l0EZ90SUQ";

/// The updates of a file: "GUID item old->new" with "(none)" for no old value, one a line; then what was left out,
/// "line 3 FireRating: why"; then the notes.
std::string askedOf(std::string_view bytes, const std::string& name, const AskOptions& options = {});

}  // namespace tables
