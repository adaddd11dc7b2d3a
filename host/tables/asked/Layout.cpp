#include "tables/asked/Layout.hpp"

#include "tables/Guids.hpp"
#include "tables/Text.hpp"
#include "tables/reading/TableBuilder.hpp"
#include "text/Ascii.hpp"
#include "text/Message.hpp"

#include <algorithm>

namespace tables {
namespace {

constexpr std::uint32_t LongColumns = 4;

std::string headerText(const Table& table, const Table::Row& header, std::uint32_t column) {
    return std::string(trimmed(table.text(header.cell(column))));
}

/// The columns of a header that names exactly those of a long list.
std::optional<LongLayout> namedColumns(const Table& table, const Table::Row& header) {
    std::optional<std::uint32_t> guid;
    std::optional<std::uint32_t> item;
    std::optional<std::uint32_t> old;
    std::optional<std::uint32_t> value;
    for (const Cell& cell : header.cells) {
        const std::string_view name = trimmed(table.text(&cell));
        auto& column = namesGuids(name)                        ? guid
                       : text::equalIgnoringCase(name, "Item") ? item
                       : text::equalIgnoringCase(name, "Old")  ? old
                                                               : value;
        if (column || (&column == &value && !text::equalIgnoringCase(name, "New"))) return std::nullopt;
        column = cell.column;
    }
    if (!guid || !item || !value) return std::nullopt;
    return LongLayout{true, true, *guid, *item, old, *value};
}

TableLayout gridLayout(const Table& table, const Table::Row& header) {
    TableLayout layout;
    for (std::uint32_t column = 1; column < table.width(); ++column) {
        if (!headerText(table, header, column).starts_with('#'))
            layout.grid.items.push_back({column, std::string(table.text(header.cell(column)))});
    }
    return layout;
}

/// Lines may have empty fields at their ends, as a spreadsheet program writes them; a fourth one is the new value.
std::uint32_t longWidth(const Table& table) {
    return std::max(table.width(), std::min(table.writtenWidth(), LongColumns));
}

Error neither(const Table& table, const Table::Row& header) {
    const std::string first(trimmed(table.text(header.cell(0))));
    if (parseGuid(first)) {
        return {
            text::message("line {}: a list of three or four columns needs no header, but this has {} columns; write a "
                          "header line with GUID and the items' names above",
                          header.line, table.width())};
    }
    return {
        text::message("line {}: the first cell is {}; write GUID above the elements' GUIDs and an item above each "
                      "other column, or save a list of GUID, item, old value, new value",
                      header.line, first.empty() ? text::message("empty") : inQuotes(first))};
}

}  // namespace

std::string_view layoutName(Layout layout) {
    return layout == Layout::Grid ? "grid" : "long";
}

Result<TableLayout> findLayout(const Table& table) {
    const Table::Row header = table.row(0);
    // First: the header of a long list begins with GUID like that of a grid.
    if (const auto named = namedColumns(table, header)) return TableLayout{Layout::Long, {}, *named};
    if (namesGuids(table.text(header.cell(0)))) return gridLayout(table, header);
    const std::uint32_t width = longWidth(table);
    if (width != LongColumns && width != LongColumns - 1) return neither(table, header);
    LongLayout list;
    list.hasHeader = !parseGuid(table.text(header.cell(0))).has_value();
    list.value = width - 1;
    if (width == LongColumns) list.old = 2;
    return TableLayout{Layout::Long, {}, list};
}

std::string columnTitle(const ReadTable& read, std::uint32_t column, bool hasHeader) {
    std::string title = hasHeader ? headerText(read.table, read.table.row(0), column) : std::string();
    if (!title.empty()) return title;
    return text::message("column {}", read.sheet.empty() ? std::to_string(column + 1) : columnLetters(column));
}

}  // namespace tables
