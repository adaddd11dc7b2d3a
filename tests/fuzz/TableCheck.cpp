#include "fuzz/TableChecks.hpp"
#include "tables/Writing.hpp"
#include "tables/reading/Delimited.hpp"

namespace fuzz {
namespace {

using namespace tables;

/// Every line and every cell, empty ones too, where that is not too much.
std::vector<std::vector<std::string>> wholeRows(const Table& table) {
    constexpr std::size_t MostCells = 100'000;
    std::vector<std::vector<std::string>> rows;
    if (table.rowCount() * table.width() > MostCells) return rows;
    for (std::size_t i = 0; i < table.rowCount(); ++i) {
        rows.emplace_back(table.width());
        for (const Cell& cell : table.row(i).cells) rows.back()[cell.column] = table.text(&cell);
    }
    return rows;
}

void requireSameWhenWritten(const Table& table) {
    const auto rows = wholeRows(table);
    if (rows.empty()) return;
    // The first line is the tables' own, so that no text of theirs can be taken for a line that names the delimiter.
    const std::string text = writeDelimited({std::vector<std::string>(table.width(), "x"), rows}, ';');
    const auto again = readDelimited(text, ';');
    require(static_cast<bool>(again), "a table that was written is not read");
    auto same = wholeRows(*again);
    require(!same.empty(), "a table that was written is empty");
    same.erase(same.begin());
    require(same == rows, "a table that was written reads as another");
}

}  // namespace

void checkTable(std::string_view bytes) {
    const auto read = readBytes(bytes, "fuzz.csv");
    require(read || !read.error().message.empty(), "an error says nothing");
    if (!read) return;
    requireWellFormed(read->table);
    requireAskable(*read);
    requireSameWhenWritten(read->table);
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkTable)
