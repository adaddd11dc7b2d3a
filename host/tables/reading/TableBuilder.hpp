#pragma once
// Puts a table together while a file is read, and holds it to a size that a machine can bear.

#include "tables/Result.hpp"
#include "tables/Table.hpp"

namespace tables {

/// A few bytes of a file can claim any number of cells (repeated rows, merged cells). 16 bytes each and their part of
/// an update, so this is well under 2 GB.
inline constexpr std::uint64_t MostCells = 10'000'000;
/// What the spreadsheet programs allow.
inline constexpr std::uint32_t MostRows = 1'048'576;
inline constexpr std::uint32_t MostColumns = 16'384;

/// Rows and columns from the first to the last, rows from 1, columns from 0.
struct CellRange {
    std::uint32_t firstRow = 1;
    std::uint32_t firstColumn = 0;
    std::uint32_t lastRow = 1;
    std::uint32_t lastColumn = 0;
};

class TableBuilder {
public:
    /// Several tables may have one store; it must not be added to any more once the first table is in use elsewhere.
    explicit TableBuilder(std::shared_ptr<TextStore> store);

    TextStore& store() { return *store_; }
    /// Cells that follow belong to this row. A row without cells is none.
    void beginRow(std::uint32_t line);
    /// A text of no length is no cell, unless it is of a formula without value.
    void add(std::uint32_t column, CellKind kind, StoredText text);
    /// Counts an empty cell at the end of a line that was written all the same.
    void noteWidth(std::uint32_t columns);
    /// The row's cells once more in each of the rows behind it.
    void repeatRow(std::uint32_t times);
    /// Every cell of the range shows what the first one shows.
    void merge(const CellRange& range) { merged_.push_back(range); }

    bool tooLarge() const { return tooLarge_; }
    bool empty() const { return table_.cells_.empty(); }
    /// The table, which is then no longer here.
    Result<Table> finish();

private:
    void sort();
    void fill();
    void fillRange(const CellRange& range, std::vector<std::pair<std::size_t, Cell>>& filling);

    std::shared_ptr<TextStore> store_;
    Table table_;
    std::vector<CellRange> merged_;
    std::uint64_t visited_ = 0;  ///< Cells of merged ranges that were looked at.
    std::uint32_t line_ = 0;
    bool tooLarge_ = false;
};

/// "A", "Z", "AA": how a workbook's user names the column.
std::string columnLetters(std::uint32_t column);

}  // namespace tables
