#pragma once
// Elements as a table of people's, which comes back as updates.

#include "model/Model.hpp"
#include "tables/Writing.hpp"

#include <QString>
#include <vector>

namespace desktop {

tables::Grid gridOf(const model::Model& model, const std::vector<model::Element>& elements);

/// Writes it in the form that the name's ending asks for: .xlsx, .csv, .tsv.
/// @return why it could not be written; empty where it was.
QString writeGrid(const tables::Grid& grid, const QString& path);

}  // namespace desktop
