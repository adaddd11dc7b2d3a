#include "tables/Asking.hpp"

#include "tables/Guids.hpp"
#include "tables/Text.hpp"
#include "tables/asked/Collector.hpp"
#include "tables/asked/DecimalComma.hpp"
#include "tables/asked/Exported.hpp"
#include "text/Message.hpp"

#include <algorithm>
#include <set>
#include <utility>

namespace tables {
namespace {

bool isEmptyRow(const Table& table, const Table::Row& row) {
    return std::all_of(row.cells.begin(), row.cells.end(),
                       [&](const Cell& cell) { return cell.kind == CellKind::Text && isBlank(table.text(&cell)); });
}

/// The texts of one column from the given row on.
CommaColumn commasOf(const Table& table, std::uint32_t column, std::size_t firstRow) {
    CommaColumn commas;
    for (std::size_t i = firstRow; i < table.rowCount(); ++i) {
        const Cell* cell = table.row(i).cell(column);
        if (cell != nullptr && cell->kind == CellKind::Text) commas.add(table.text(cell));
    }
    return commas;
}

/// What both layouts do line by line.
class Reader {
public:
    Reader(const ReadTable& read, const AskOptions& options)
        : read_(read), table_(read.table), options_(options), collector_(options) {}

protected:
    /// The line's GUID; nothing, and told, where it has none.
    std::optional<std::string> guidOf(const Table::Row& row, std::uint32_t column, const std::string& title) {
        const Cell* cell = row.cell(column);
        const std::string_view text = trimmed(table_.text(cell));
        auto guid = parseGuid(text);
        if (guid) return guid;
        collector_.leaveOut(
            row.line, title,
            text.empty() ? text::message("the line has no GUID")
                         : text::message("{} is no GUID of 36 characters and no GlobalId of 22", inQuotes(text)));
        return std::nullopt;
    }

    /// Blanks at the ends of a name are a slip of the hand, unless the element has an item that is named so.
    std::string itemOf(const std::string& guid, const std::string& written) const {
        std::string item(trimmed(written));
        const bool named = item != written && options_.current && options_.current(guid, written);
        return named ? written : item;
    }

    const ReadTable& read_;
    const Table& table_;
    const AskOptions& options_;
    Collector collector_;
};

class GridReader : Reader {
public:
    GridReader(const ReadTable& read, const AskOptions& options, const GridLayout& layout)
        : Reader(read, options),
          exported_(read.exported ? &*read.exported : nullptr),
          guidTitle_(columnTitle(read, layout.guid, true)) {
        for (const ItemColumn& column : layout.items) {
            collector_.noteBreaks(table_.row(0).cell(column.column));
            if (!isBlank(column.item)) items_.emplace(trimmed(column.item));
            columns_.push_back({column, columnTitle(read, column.column, true), {}});
        }
        for (std::size_t i = 1; i < table_.rowCount(); ++i) {
            // All of a column before its first cell is read: what a comma means may show in the last.
            forEachFilled(table_.row(i), [&](const Cell& cell, Column& column) {
                if (cell.kind == CellKind::Text) column.commas.add(table_.text(&cell));
            });
        }
    }

    Asked read() {
        for (std::size_t i = 1; i < table_.rowCount(); ++i) {
            const Table::Row row = table_.row(i);
            if (isEmptyRow(table_, row)) continue;
            const auto guid = guidOf(row, 0, guidTitle_);
            if (!guid) continue;
            const std::uint32_t element = collector_.elementNumber(*guid);
            // Elements get their numbers in turn: a number that was there before is an element that was.
            if (element < elements_) again_.push_back(row.line);
            elements_ = std::max(elements_, element + 1);
            readCells(row, *guid, element);
        }
        Asked asked = collector_.finish();
        asked.layout = Layout::Grid;
        asked.items = items_.size();  // with those that no line asks for
        if (!again_.empty()) {
            asked.notes.push_back(text::counted("{} line with the GUID of a line above, the first is line {}",
                                                "{} lines with the GUID of a line above, the first is line {}",
                                                again_.size(), again_.front()));
        }
        return asked;
    }

private:
    struct Column {
        ItemColumn place;
        std::string title;
        CommaColumn commas;
    };

    /// A small file may have thousands of columns, and thousands of lines that fill none of them.
    template <class Visit>
    void forEachFilled(const Table::Row& row, Visit visit) {
        auto column = columns_.begin();
        for (const Cell& cell : row.cells) {
            column = std::lower_bound(column, columns_.end(), cell.column, [](const Column& one, std::uint32_t wanted) {
                return one.place.column < wanted;
            });
            if (column == columns_.end()) return;
            if (column->place.column == cell.column) visit(cell, *column);
        }
    }

    void readCells(const Table::Row& row, const std::string& guid, std::uint32_t element) {
        if (options_.clearEmpty) {
            for (const Column& column : columns_) readCell(row, guid, element, column, row.cell(column.place.column));
        } else {
            forEachFilled(row,
                          [&](const Cell& cell, const Column& column) { readCell(row, guid, element, column, &cell); });
        }
    }

    void readCell(const Table::Row& row, const std::string& guid, std::uint32_t element, const Column& column,
                  const Cell* cell) {
        const std::string_view text = table_.text(cell);
        const std::string item = itemOf(guid, column.place.item);
        if (item.empty()) {
            if (!isBlank(text))
                collector_.leaveOut(row.line, column.title, text::message("the column has no name in the first line"));
            return;
        }
        collector_.noteBreaks(cell);
        const CellKind kind = cell == nullptr ? CellKind::Text : cell->kind;
        const bool comma = kind == CellKind::Text && column.commas.showsDecimalComma(text);
        collector_.take({row.line, guid, element, item, collector_.itemNumber(item), column.title,
                         exported_.value(guid, item), text, kind, comma});
    }

    ExportedValues exported_;
    std::string guidTitle_;
    std::vector<Column> columns_;
    std::set<std::string> items_;
    std::uint32_t elements_ = 0;        ///< So far.
    std::vector<std::uint32_t> again_;  ///< Lines of elements that had one already.
};

class LongReader : Reader {
public:
    LongReader(const ReadTable& read, const AskOptions& options, const LongLayout& layout)
        : Reader(read, options),
          layout_(layout),
          firstRow_(layout.hasHeader ? 1 : 0),
          commas_(commasOf(table_, layout.value, firstRow_)) {
        titles_ = {title(layout.guid, "GUID"), title(layout.item, "Item"), title(layout.value, "New")};
        // A column of old values that is empty throughout says nothing; one empty cell says that there was nothing.
        for (std::size_t i = firstRow_; layout.old && i < table_.rowCount() && !oldIsSaid_; ++i)
            oldIsSaid_ = !isBlank(table_.text(table_.row(i).cell(*layout.old)));
    }

    Asked read() {
        for (std::size_t i = firstRow_; i < table_.rowCount(); ++i)
            if (const Table::Row row = table_.row(i); !isEmptyRow(table_, row)) readLine(row);
        Asked asked = collector_.finish();
        asked.layout = Layout::Long;
        if (layout_.hasHeader && !layout_.headerNames) {
            asked.notes.push_back(text::message("Line {} begins with {} and no GUID: it was taken for a header",
                                                table_.row(0).line, inQuotes(table_.text(table_.row(0).cell(0)))));
        }
        return asked;
    }

private:
    struct Titles {
        std::string guid;
        std::string item;
        std::string value;
    };

    /// A header that does not name the columns as they are used tells nothing about them.
    std::string title(std::uint32_t column, const char* otherwise) const {
        return layout_.headerNames ? columnTitle(read_, column, true) : otherwise;
    }

    void readLine(const Table::Row& row) {
        const auto guid = guidOf(row, layout_.guid, titles_.guid);
        if (!guid) return;
        const std::uint32_t element = collector_.elementNumber(*guid);
        const std::string item = itemOf(*guid, std::string(table_.text(row.cell(layout_.item))));
        if (item.empty()) {
            collector_.leaveOut(row.line, titles_.item, text::message("the line names no item"));
            return;
        }
        for (const Cell& cell : row.cells) readSurplus(row, cell);
        const Cell* value = row.cell(layout_.value);
        collector_.noteBreaks(row.cell(layout_.item));
        collector_.noteBreaks(value);
        const std::string_view text = table_.text(value);
        const CellKind kind = value == nullptr ? CellKind::Text : value->kind;
        const bool comma = kind == CellKind::Text && commas_.showsDecimalComma(text);
        collector_.take({row.line, *guid, element, item, collector_.itemNumber(item), titles_.value, oldOf(row), text,
                         kind, comma, true});
    }

    std::optional<std::string> oldOf(const Table::Row& row) const {
        if (!layout_.old || !oldIsSaid_) return std::nullopt;
        return std::string(table_.text(row.cell(*layout_.old)));
    }

    void readSurplus(const Table::Row& row, const Cell& cell) {
        const std::uint32_t column = cell.column;
        if (column == layout_.guid || column == layout_.item || column == layout_.old || column == layout_.value)
            return;
        if (!isBlank(table_.text(&cell))) {
            collector_.leaveOut(row.line, columnTitle(read_, column, layout_.headerNames),
                                text::message("the column has no name in the first line"));
        }
    }

    const LongLayout& layout_;
    std::size_t firstRow_;
    CommaColumn commas_;
    Titles titles_;
    bool oldIsSaid_ = false;
};

}  // namespace

Result<Asked> findUpdates(const ReadTable& read, const std::string& fileName, const AskOptions& options) {
    const Result<TableLayout> layout = findLayout(read.table);
    if (!layout) return Error{fileName + ": " + layout.error().message};
    Asked asked = layout->layout == Layout::Grid ? GridReader(read, options, layout->grid).read()
                                                 : LongReader(read, options, layout->longList).read();
    asked.notes.insert(asked.notes.begin(), read.notes.begin(), read.notes.end());
    return asked;
}

}  // namespace tables
