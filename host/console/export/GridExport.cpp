#include "console/export/GridExport.hpp"

#include "console/output/HostText.hpp"
#include "text/Guid.hpp"

#include <iterator>
#include <utility>

namespace console {

GridExport::GridExport(const model::Model& model, const std::vector<std::string>& items, Missing missing)
    : model_(model),
      missing_(missing),
      columns_(std::begin(tables::GridColumns), std::end(tables::GridColumns)),
      // A line that is kept shows what is missing by an empty cell, and it is not told once more.
      exporter_(model, items, Missing::Include, [this](const ExportedValue& value) {
          if (value.missing) return;
          anyThere_ = true;
          rows_.back()[std::size(tables::GridColumns) + value.place] = value.value;
      }) {
    columns_.insert(columns_.end(), items.begin(), items.end());
}

void GridExport::add(model::Element element) {
    const model::ElementInfo info = model_.info(element);
    Row& row = rows_.emplace_back();
    row = {text::guidText(info.guid), model_.storey(element), info.ifcClass, info.typeName.english(),
           toUtf8(model_.name(element))};
    row.resize(columns_.size());
    anyThere_ = false;
    exporter_.write(element);
    if (!anyThere_ && missing_ == Missing::LeaveOut) rows_.pop_back();
}

tables::Grid GridExport::take() && {
    tables::Grid grid{std::move(columns_), {}};
    grid.rows.reserve(rows_.size());
    for (Row& row : rows_) {
        auto& cells = grid.rows.emplace_back();
        for (auto& cell : row) cells.push_back(std::move(cell).value_or(std::string()));
    }
    return grid;
}

}  // namespace console
