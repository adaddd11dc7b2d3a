#pragma once

#include <QString>
#include <string_view>

namespace desktop {

/// Writes a file so that the old one or the new one is there whole.
/// @return why it could not be written; empty where it was.
QString writeWhole(const QString& path, std::string_view bytes);

}  // namespace desktop
