#pragma once
// The values that a workbook keeps as they were exported.

#include "tables/Table.hpp"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tables {

class ExportedValues {
public:
    /// @param table  null: nothing is known. A table that is no grid tells nothing either. Must outlive this object.
    explicit ExportedValues(const Table* table);

    /// Nothing where the element's line or the item's column was not exported; empty where the cell was.
    std::optional<std::string> value(const std::string& guid, const std::string& item) const;

private:
    const Table* table_;
    // Sorted, not hashed: a file can be made so that all its texts have one hash.
    std::map<std::string, std::size_t> rows_;
    std::map<std::string, std::uint32_t> columns_;
};

}  // namespace tables
