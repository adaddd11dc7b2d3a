#pragma once
// Elements as a table of people's, which comes back as updates.

#include "desktop/elements/ItemValues.hpp"
#include "model/Model.hpp"
#include "tables/Writing.hpp"

#include <QString>
#include <vector>

namespace desktop {

/// What stands behind the columns that every grid has.
struct FurtherColumns {
    const ElementIndex* rooms = nullptr;  ///< Null: without the rooms.
    std::vector<Item> items;
};

/// Items are named as updates name them, and their cells hold what an import compares with: a cell that nobody changes
/// asks for nothing. Where that name would reach another item of one of the elements, the column is for the reader.
tables::Grid gridOf(const model::Model& model, const std::vector<model::Element>& elements,
                    const FurtherColumns& further = {});

/// Writes it in the form that the name's ending asks for: .xlsx, .csv, .tsv.
/// @return why it could not be written; empty where it was.
QString writeGrid(const tables::Grid& grid, const QString& path);

}  // namespace desktop
