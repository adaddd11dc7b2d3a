#pragma once
// Which column of a table holds what.

#include "tables/Reading.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tables {

enum class Layout : std::uint8_t {
    Grid,  ///< A line for each element, a column for each item.
    Long,  ///< A line for each value: GUID, item, old value, new value.
};

/// "grid", "long"
std::string_view layoutName(Layout layout);

struct ItemColumn {
    std::uint32_t column = 0;
    std::string item;  ///< As an update file's second field names it; empty for a column without header.
};

struct GridLayout {
    std::uint32_t guid = 0;
    std::vector<ItemColumn> items;  ///< Every column but the first and those whose header begins with "#".
};

struct LongLayout {
    bool hasHeader = false;
    bool headerNames = false;  ///< It says which column is which. Otherwise its texts mean nothing.
    std::uint32_t guid = 0;
    std::uint32_t item = 1;
    std::optional<std::uint32_t> old;
    std::uint32_t value = 2;
};

struct TableLayout {
    Layout layout = Layout::Grid;
    GridLayout grid;      ///< Where it is one.
    LongLayout longList;  ///< Where it is one.
};

/// A header of just GUID, Item and New, with Old or without, in any order and case: long. A first cell GUID or
/// GlobalId: grid. Anything else with three or four columns: long, with a header where the first cell is no GUID. The
/// rest is an error that says what a table must look like.
Result<TableLayout> findLayout(const Table& table);

/// How the column is called: by its header, trimmed; without one "column C" for a workbook, "column 3" for a text.
std::string columnTitle(const ReadTable& read, std::uint32_t column, bool hasHeader);

}  // namespace tables
