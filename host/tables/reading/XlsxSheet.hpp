#pragma once
// One sheet of an .xlsx.

#include "tables/Result.hpp"
#include "tables/Table.hpp"
#include "tables/reading/XlsxParts.hpp"

#include <memory>

namespace tables::xlsx {

/// What the cells of all sheets refer to.
struct Shared {
    std::shared_ptr<TextStore> store;
    std::vector<StoredText> strings;
    std::vector<NumberStyle> styles;
    DayCount days = DayCount::From1900;
};

Result<Table> readSheet(Package& package, const Sheet& sheet, const Shared& shared);

}  // namespace tables::xlsx
