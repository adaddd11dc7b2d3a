#pragma once
// Columns of text for a person: aligned, fitted to the terminal's width, coloured where wanted.

#include "console/output/Terminal.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace console {

enum class Style : std::uint8_t { Plain, Bold, Dim, Red, Green };

struct TableCell {
    std::string text;  ///< Any text; control characters are shown as pictures.
    Style style = Style::Plain;
};

class Table {
public:
    using Row = std::vector<TableCell>;

    explicit Table(std::vector<std::string> header);
    /// Missing cells at the end are empty.
    void add(Row row);
    bool empty() const { return rows.empty(); }

    /// Every line ends with a line end. Where the terminal has a width, the widest columns are cut until a line fits.
    std::string layOut(const Terminal& terminal) const;

private:
    std::vector<int> naturalWidths() const;
    std::vector<Row> rows;  ///< The header first.
};

}  // namespace console
