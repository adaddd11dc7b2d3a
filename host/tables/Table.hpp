#pragma once
// What all kinds of files are read to: rows of cells, of which only those that hold something are kept. Texts lie end
// to end in one store; a text that many cells show is there once, so memory grows with the file and not with what a
// small file claims to show.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tables {

enum class CellKind : std::uint8_t {
    Text,
    Number,      ///< In the shortest form that reads back, with a point.
    Truth,       ///< "true" or "false".
    Date,        ///< "2024-05-17", "2024-05-17T08:30:00", or a time of day "08:30:00".
    Fault,       ///< A formula's error as it is shown, "#N/A".
    Uncomputed,  ///< A formula of which the file keeps no value; its text is empty.
};

/// A text of the store.
struct StoredText {
    std::uint64_t start = 0;
    std::uint32_t length = 0;
    bool hadBreaks = false;  ///< It held a TAB, CR or LF, each of which is now a blank.
};

struct Cell {
    std::uint32_t column = 0;  ///< From 0.
    CellKind kind = CellKind::Text;
    StoredText text;
};

class TextStore {
public:
    /// Keeps a copy in which each TAB, CR and LF is a blank.
    StoredText keep(std::string_view text);
    std::string_view at(const StoredText& text) const {
        return std::string_view(bytes_).substr(text.start, text.length);
    }

private:
    std::string bytes_;
};

class Table {
public:
    struct Row {
        std::uint32_t line = 0;       ///< From 1, as an editor numbers lines and a spreadsheet program rows.
        std::span<const Cell> cells;  ///< In the order of their columns, at least one.

        /// @return null where the cell is empty.
        const Cell* cell(std::uint32_t column) const;
    };

    std::size_t rowCount() const { return rows_.size(); }
    /// The row at this place among those that are not empty, from the top.
    Row row(std::size_t place) const;
    /// The cell's text, empty for null. Valid as long as the table.
    std::string_view text(const Cell* cell) const {
        return cell == nullptr ? std::string_view() : store_->at(cell->text);
    }

    /// One more than the last column that holds anything.
    std::uint32_t width() const { return width_; }
    /// The most cells that a line was written with, empty ones at its end included.
    std::uint32_t writtenWidth() const { return writtenWidth_; }
    /// The cells that were filled because they are part of a merged one.
    std::uint64_t filledByMerging() const { return filled_; }

private:
    friend class TableBuilder;
    struct StoredRow {
        std::uint32_t line = 0;
        std::size_t first = 0;
        std::size_t count = 0;
    };

    std::shared_ptr<const TextStore> store_;
    std::vector<StoredRow> rows_;
    std::vector<Cell> cells_;
    std::uint32_t width_ = 0;
    std::uint32_t writtenWidth_ = 0;
    std::uint64_t filled_ = 0;
};

}  // namespace tables
