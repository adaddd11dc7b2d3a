#include "tables/asked/Exported.hpp"

#include "tables/Guids.hpp"
#include "tables/Text.hpp"

namespace tables {

ExportedValues::ExportedValues(const Table* table) : table_(table) {
    if (table == nullptr || table->rowCount() == 0) return;
    const Table::Row header = table->row(0);
    if (!namesGuids(table->text(header.cell(0)))) return;
    for (const Cell& cell : header.cells)
        if (cell.column > 0) columns_.try_emplace(std::string(table->text(&cell)), cell.column);
    for (std::size_t i = 1; i < table->rowCount(); ++i)
        if (auto guid = parseGuid(table->text(table->row(i).cell(0)))) rows_.try_emplace(std::move(*guid), i);
}

std::optional<std::string> ExportedValues::value(const std::string& guid, const std::string& item) const {
    const auto row = rows_.find(guid);
    const auto column = columns_.find(item);
    if (row == rows_.end() || column == columns_.end()) return std::nullopt;
    return std::string(table_->text(table_->row(row->second).cell(column->second)));
}

}  // namespace tables
