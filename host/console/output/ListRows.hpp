#pragma once
// A copy of a dialog list's rows, for use after the dialog is closed.

#include "frameworks/FrontEnd.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace console {

struct ListRow {
    std::vector<std::string> columns;  ///< UTF-8, one for each tab field.
    int status = DG_IS_ENABLE;
    std::optional<frontend::Color> color;
};

std::vector<std::string> readHeader(const frontend::List& list);

ListRow readRow(const frontend::List& list, Int16 row);
/// From row `first` (from 1) to the last.
std::vector<ListRow> readRows(const frontend::List& list, int first = 1);

}  // namespace console
