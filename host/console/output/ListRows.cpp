#include "console/output/ListRows.hpp"

#include "console/output/HostText.hpp"

namespace console {

std::vector<std::string> readHeader(const frontend::List& list) {
    std::vector<std::string> texts;
    for (const frontend::HeaderItem& item : list.header()) texts.push_back(toUtf8(item.text));
    return texts;
}

ListRow readRow(const frontend::List& list, Int16 row) {
    ListRow result;
    const auto fields = static_cast<Int16>(list.tabFields().size());
    result.columns.reserve(list.tabFields().size());
    for (Int16 field = 1; field <= fields; ++field) result.columns.push_back(toUtf8(list.cell(row, field)));
    result.status = list.status(row);
    result.color = list.color(row);
    return result;
}

std::vector<ListRow> readRows(const frontend::List& list, int first) {
    std::vector<ListRow> rows;
    // The counter is an int: in a list of 32,767 rows an Int16 would overflow behind the last one.
    for (int row = first; row <= list.rowCount(); ++row) rows.push_back(readRow(list, static_cast<Int16>(row)));
    return rows;
}

}  // namespace console
