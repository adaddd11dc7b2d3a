#pragma once

#include <QString>

namespace desktop {

/// Whether a file holds updates rather than a model: an update file or a table, by its content and its ending. People
/// drop the one for the other.
bool holdsUpdates(const QString& path);

}  // namespace desktop
