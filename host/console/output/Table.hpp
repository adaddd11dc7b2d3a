#pragma once
// Columns of text for a person: aligned, fitted to the terminal's width, coloured where wanted.

#include "console/output/StandardOutput.hpp"
#include "importing/ListRows.hpp"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace console {

enum class Style : std::uint8_t { Plain, Bold, Dim, Red, Green };

struct TableCell {
    importing::SharedText text;  ///< Any text; control characters are shown as pictures.
    Style style = Style::Plain;
};

/// Which columns are cut first on a terminal that is too narrow for all of them.
enum class Yield : std::uint8_t {
    First,   ///< Its beginning is enough to recognise it.
    Evenly,  ///< The widest of these is cut first.
    Last,    ///< Useless when it is cut.
};

class Table {
public:
    using Row = std::vector<TableCell>;

    explicit Table(std::vector<std::string> header);
    /// Missing cells at the end are empty.
    void add(Row row);
    /// @param column  from 0. The default is Evenly.
    void yield(std::size_t column, Yield when) { yields_.at(column) = when; }
    /// Where the table is fitted to a terminal, cells of these columns that repeat the row above are blank, as long as
    /// those of the columns named before do, too.
    void blankRepeats(std::vector<std::size_t> columns) { blanked_ = std::move(columns); }
    /// Where the terminal is so narrow that columns would have to be cut to less than `readable`, these are left out,
    /// in this order.
    void mayLeaveOut(std::vector<std::size_t> columns, int readable) {
        spare_ = std::move(columns);
        readable_ = readable;
    }

    /// Gives `sink` the lines, each with its line end. Where the terminal has a width, columns are cut until a line
    /// fits. Without one every text is there in full, and columns align up to WidestAligned.
    /// @return the headers of the columns left out.
    std::vector<std::string> layOut(const Terminal& terminal,
                                    const std::function<void(std::string_view line)>& sink) const;

    /// Without it one cell of 400 kB would make each of 4000 lines as long.
    static constexpr int WidestAligned = 200;

private:
    std::vector<int> naturalWidths(int most) const;
    void fit(std::vector<int>& widths, int lineWidth) const;
    std::vector<std::size_t> leftOut(const std::vector<int>& widths, int lineWidth) const;
    void layOutFitted(const Terminal& terminal, const std::vector<int>& widths,
                      const std::function<void(std::string_view)>& sink) const;
    Table without(const std::vector<std::size_t>& columns) const;

    std::vector<Row> rows_;  ///< The header first.
    std::vector<Yield> yields_;
    std::vector<std::size_t> blanked_;
    std::vector<std::size_t> spare_;
    int readable_ = 0;
};

/// "Left out for want of room: set. --wide shows it." and an empty line before; empty where nothing was left out.
std::string leftOutNote(const std::vector<std::string>& headers);

}  // namespace console
