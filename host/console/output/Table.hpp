#pragma once
// Columns of text for a person: aligned, fitted to the terminal's width, coloured where wanted.

#include "console/output/StandardOutput.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace console {

enum class Style : std::uint8_t { Plain, Bold, Dim, Red, Green };

struct TableCell {
    std::string text;  ///< Any text; control characters are shown as pictures.
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

    /// Every line ends with a line end. Where the terminal has a width, columns are cut until a line fits.
    std::string layOut(const Terminal& terminal) const;

private:
    std::vector<int> naturalWidths() const;
    void fit(std::vector<int>& widths, int lineWidth) const;

    std::vector<Row> rows_;  ///< The header first.
    std::vector<Yield> yields_;
};

}  // namespace console
