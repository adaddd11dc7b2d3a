#pragma once
// What both kinds of workbooks are read to: Xlsx.cpp, with XlsxParts and XlsxSheet, and Ods.cpp.

#include "tables/Result.hpp"
#include "tables/Table.hpp"
#include "tables/reading/Package.hpp"
#include "tables/reading/TableBuilder.hpp"

#include <optional>
#include <string>
#include <vector>

namespace tables {

/// The sheet that keeps the values as they were exported. It is never the table itself, unless it is asked for.
inline constexpr const char* ExportedSheet = "exported";

struct WorkbookContent {
    std::string sheet;
    Table table;
    std::optional<Table> exported;  ///< None where `sheet` is itself that sheet.
};

/// @param wantedSheet  empty: the first one that holds anything and is not ExportedSheet.
/// Errors come without the file's name, with sheet, row and column where they are known.
Result<WorkbookContent> readXlsx(Package& package, const std::string& wantedSheet);
Result<WorkbookContent> readOds(Package& package, const std::string& wantedSheet);

/// "sheet 'Doors', row 7, column C: WHAT"
Error cellError(const std::string& sheet, std::uint32_t row, std::uint32_t column, const std::string& what);
/// No sheet of the name, or none that holds anything.
Error sheetError(const std::string& wantedSheet, const std::vector<std::string>& sheets);

}  // namespace tables
