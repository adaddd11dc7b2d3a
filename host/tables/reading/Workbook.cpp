#include "tables/reading/Workbook.hpp"

namespace tables {

Error cellError(const std::string& sheet, std::uint32_t row, std::uint32_t column, const std::string& what) {
    return {"sheet '" + sheet + "', row " + std::to_string(row) + ", column " + columnLetters(column) + ": " + what};
}

Error sheetError(const std::string& wantedSheet, const std::vector<std::string>& sheets) {
    if (wantedSheet.empty()) return {"no sheet of the workbook holds anything; save one with the table in it"};
    std::string names;
    for (const std::string& sheet : sheets) {
        if (sheet == wantedSheet) return {"the sheet '" + wantedSheet + "' is empty; choose another one"};
        names += (names.empty() ? "'" : ", '") + sheet + "'";
    }
    return {"there is no sheet '" + wantedSheet + "'; the workbook has " + (names.empty() ? "none" : names)};
}

}  // namespace tables
