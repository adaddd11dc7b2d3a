#include "tables/reading/TableBuilder.hpp"

#include "text/Message.hpp"

#include <algorithm>
#include <utility>

namespace tables {

TableBuilder::TableBuilder(std::shared_ptr<TextStore> store) : store_(std::move(store)) {}

void TableBuilder::beginRow(std::uint32_t line) {
    line_ = line;
}

void TableBuilder::add(std::uint32_t column, CellKind kind, StoredText text) {
    if (text.length == 0 && kind != CellKind::Uncomputed) return;
    if (table_.cells_.size() >= MostCells) {
        tooLarge_ = true;
        return;
    }
    auto& rows = table_.rows_;
    // A row comes with its first cell: of the empty ones a sheet may have a million.
    if (rows.empty() || rows.back().line != line_) rows.push_back({line_, table_.cells_.size(), 0});
    table_.cells_.push_back({column, kind, text});
    ++rows.back().count;
    table_.width_ = std::max(table_.width_, column + 1);
}

void TableBuilder::noteWidth(std::uint32_t columns) {
    table_.writtenWidth_ = std::max(table_.writtenWidth_, columns);
}

void TableBuilder::repeatRow(std::uint32_t times) {
    if (table_.rows_.empty() || table_.rows_.back().line != line_) return;
    // A copy, as of each cell below: adding moves what a reference would point to.
    const Table::StoredRow row = table_.rows_.back();
    for (std::uint32_t i = 1; i <= times && !tooLarge_; ++i) {
        beginRow(row.line + i);
        for (std::size_t cell = row.first; cell < row.first + row.count; ++cell) {
            const Cell repeated = table_.cells_[cell];
            add(repeated.column, repeated.kind, repeated.text);
        }
    }
}

void TableBuilder::sort() {
    auto& rows = table_.rows_;
    const auto byLine = [](const Table::StoredRow& a, const Table::StoredRow& b) { return a.line < b.line; };
    const auto byColumn = [](const Cell& a, const Cell& b) { return a.column < b.column; };
    // Looked at first, since programs write in order and a stable sort takes as much memory again.
    if (!std::is_sorted(rows.begin(), rows.end(), byLine)) std::stable_sort(rows.begin(), rows.end(), byLine);
    for (const Table::StoredRow& row : rows) {
        const auto first = table_.cells_.begin() + static_cast<std::ptrdiff_t>(row.first);
        const auto last = first + static_cast<std::ptrdiff_t>(row.count);
        if (!std::is_sorted(first, last, byColumn)) std::stable_sort(first, last, byColumn);
    }
}

void TableBuilder::fillRange(const CellRange& range, std::vector<std::pair<std::size_t, Cell>>& filling) {
    const auto& rows = table_.rows_;
    auto row = std::lower_bound(rows.begin(), rows.end(), range.firstRow,
                                [](const Table::StoredRow& a, std::uint32_t line) { return a.line < line; });
    if (row == rows.end() || row->line != range.firstRow) return;
    const auto place = static_cast<std::size_t>(row - rows.begin());
    const Cell* origin = table_.row(place).cell(range.firstColumn);
    if (origin == nullptr || table_.width_ == 0) return;
    const std::uint32_t lastColumn = std::min(range.lastColumn, table_.width_ - 1);
    for (std::size_t at = place; at < rows.size() && rows[at].line <= range.lastRow; ++at) {
        for (std::uint32_t column = range.firstColumn; column <= lastColumn; ++column) {
            // Counted whether it fills something or not: ranges that overlap could take any time.
            if (++visited_ > MostCells) {
                tooLarge_ = true;
                return;
            }
            if (at != place || column != range.firstColumn)
                filling.emplace_back(at, Cell{column, origin->kind, origin->text});
        }
    }
}

/// Rows that hold nothing else are not filled: they are no lines of the table, just the merged cell's height.
void TableBuilder::fill() {
    std::vector<std::pair<std::size_t, Cell>> filling;
    for (const CellRange& range : merged_) fillRange(range, filling);
    if (filling.empty()) return;
    table_.filled_ = filling.size();
    const auto before = [](const auto& a, const auto& b) {
        return std::pair(a.first, a.second.column) < std::pair(b.first, b.second.column);
    };
    std::stable_sort(filling.begin(), filling.end(), before);

    std::vector<Cell> cells;
    cells.reserve(table_.cells_.size() + filling.size());
    auto next = filling.begin();
    for (std::size_t at = 0; at < table_.rows_.size(); ++at) {
        auto& row = table_.rows_[at];
        const std::size_t first = cells.size();
        std::size_t own = row.first;
        const std::size_t end = row.first + row.count;
        while (own < end || (next != filling.end() && next->first == at)) {
            const bool filled = next != filling.end() && next->first == at;
            if (!filled || (own < end && table_.cells_[own].column < next->second.column)) {
                cells.push_back(table_.cells_[own++]);
                continue;
            }
            const std::uint32_t column = next->second.column;
            cells.push_back(next->second);
            while (next != filling.end() && next->first == at && next->second.column == column) ++next;
            // What lies under a merged cell is not seen, so it does not count.
            while (own < end && table_.cells_[own].column == column) ++own;
        }
        row = {row.line, first, cells.size() - first};
    }
    table_.cells_ = std::move(cells);
}

Result<Table> TableBuilder::finish() {
    sort();
    fill();
    if (tooLarge_) return Error{text::message("more than {} cells hold something; split the table", MostCells)};
    table_.writtenWidth_ = std::max(table_.writtenWidth_, table_.width_);
    table_.store_ = store_;
    return std::exchange(table_, {});
}

std::string columnLetters(std::uint32_t column) {
    std::string letters;
    for (std::uint32_t rest = column + 1; rest > 0; rest = (rest - 1) / 26)
        letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % 26));
    return letters;
}

}  // namespace tables
