#include "fuzz/TableChecks.hpp"

#include "tables/UpdateFiles.hpp"

#include <algorithm>

namespace fuzz {

using namespace tables;

void requireWellFormed(const Table& table) {
    std::uint32_t line = 0;
    for (std::size_t i = 0; i < table.rowCount(); ++i) {
        const Table::Row row = table.row(i);
        require(row.line >= line && row.line > 0, "lines do not ascend");
        require(!row.cells.empty(), "a row has no cell");
        line = row.line;
        for (std::size_t cell = 0; cell < row.cells.size(); ++cell) {
            require(cell == 0 || row.cells[cell - 1].column <= row.cells[cell].column, "columns do not ascend");
            require(row.cells[cell].column < table.width(), "a cell lies beyond the width");
            require(table.text(&row.cells[cell]).find_first_of("\t\r\n") == std::string_view::npos,
                    "a line end is left");
        }
    }
}

void requireAskable(const ReadTable& read) {
    AskOptions options;
    options.clearEmpty = true;
    const auto asked = findUpdates(read, "fuzz", options);
    if (!asked) return;
    constexpr std::size_t RowsOfAFile = 3;
    std::size_t lines = 0;
    for (const UpdateFile& file : writeUpdateFiles(asked->updates, RowsOfAFile)) {
        require(file.count <= RowsOfAFile, "an update file has too many rows");
        require(static_cast<std::size_t>(std::count(file.text.begin(), file.text.end(), '\n')) == file.count,
                "an update is no line");
        for (std::size_t at = 0, end = 0; (end = file.text.find('\n', at)) != std::string::npos; at = end + 1)
            require(end - at <= LongestLine, "a line is too long");
        lines += file.count;
    }
    require(lines == asked->updates.size(), "an update is lost");
}

}  // namespace fuzz
