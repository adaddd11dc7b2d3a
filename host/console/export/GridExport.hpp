#pragma once
// Elements as the lines of a table and their items as its columns, for people to fill in and for import to read again.

#include "console/export/Exporter.hpp"
#include "tables/Writing.hpp"

#include <optional>
#include <string>
#include <vector>

namespace console {

class GridExport {
public:
    /// @param missing  LeaveOut: an element that has none of the items makes no line.
    GridExport(const model::Model& model, const std::vector<std::string>& items, Missing missing);

    /// Throws Failure where the element's data cannot be read.
    void add(model::Element element);

    const std::vector<std::string>& columns() const { return columns_; }
    /// A cell is nothing where the element has no such item, or its value had to be left out.
    using Row = std::vector<std::optional<std::string>>;
    const std::vector<Row>& rows() const { return rows_; }
    const Exporter& exporter() const { return exporter_; }

    /// The table with these cells empty. Once only: it takes the texts along.
    tables::Grid take() &&;

private:
    const model::Model& model_;
    Missing missing_;
    std::vector<std::string> columns_;
    std::vector<Row> rows_;
    bool anyThere_ = false;  ///< Of the row that is being filled.
    Exporter exporter_;
};

}  // namespace console
