#include "tables/Table.hpp"

#include <algorithm>

namespace tables {

StoredText TextStore::keep(std::string_view text) {
    StoredText kept{bytes_.size(), static_cast<std::uint32_t>(text.size()), false};
    bytes_ += text;
    // Either would end a field or a line of the update file that is made of the table.
    for (std::size_t at = kept.start; (at = bytes_.find_first_of("\t\r\n", at)) != std::string::npos; ++at) {
        bytes_[at] = ' ';
        kept.hadBreaks = true;
    }
    return kept;
}

const Cell* Table::Row::cell(std::uint32_t column) const {
    const auto found = std::lower_bound(cells.begin(), cells.end(), column,
                                        [](const Cell& cell, std::uint32_t wanted) { return cell.column < wanted; });
    return found != cells.end() && found->column == column ? &*found : nullptr;
}

Table::Row Table::row(std::size_t place) const {
    const StoredRow& row = rows_[place];
    return {row.line, std::span(cells_).subspan(row.first, row.count)};
}

}  // namespace tables
