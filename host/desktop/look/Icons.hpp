#pragma once
// The program's pictures. They are drawn for it, in one style; a desktop theme's take their place where it has all.

#include <QIcon>
#include <QPalette>

namespace desktop {

enum class Picture : std::uint8_t { Open, Save, Undo, Redo, Import, LookUp, Report };

/// In the colours of a palette: to be asked for anew when that changes.
QIcon icon(Picture picture, const QPalette& palette);

/// The program's own, as a window bears it, in every size that a desktop asks for.
QIcon programIcon();

}  // namespace desktop
