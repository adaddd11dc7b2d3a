#include "tables/reading/Workbook.hpp"

#include "text/Message.hpp"

namespace tables {

Error cellError(const std::string& sheet, std::uint32_t row, std::uint32_t column, const std::string& what) {
    return {text::message("sheet '{}', row {}, column {}: {}", sheet, row, columnLetters(column), what)};
}

Error sheetError(const std::string& wantedSheet, const std::vector<std::string>& sheets) {
    if (wantedSheet.empty())
        return {text::message("no sheet of the workbook holds anything; save one with the table in it")};
    std::string names;
    for (const std::string& sheet : sheets) {
        if (sheet == wantedSheet) return {text::message("the sheet '{}' is empty; choose another one", wantedSheet)};
        names += (names.empty() ? "'" : ", '") + sheet + "'";
    }
    if (names.empty()) return {text::message("there is no sheet '{}'; the workbook has none", wantedSheet)};
    return {text::message("there is no sheet '{}'; the workbook has {}", wantedSheet, names)};
}

}  // namespace tables
