#pragma once

#include "frameworks/FrontEnd.hpp"
#include "model/Model.hpp"

#include <QStringList>
#include <string>

namespace desktop {

/// What the add-on passes over in silence in the update file that the user has picked, in words. Empty where there is
/// nothing to say, or where the dialog shows no review of updates: a list of eight columns.
QStringList hintsAbout(const std::string& file, const frontend::Dialog& dialog, const model::Model& model);

}  // namespace desktop
