#pragma once
// How a row of a review looks: a colour that can be read, and a sign for those who cannot tell colours apart.

#include "desktop/dialogs/RowNote.hpp"

#include <QColor>
#include <QIcon>
#include <QPalette>

namespace desktop {

/// The contrast of two colours as WCAG defines it, 1 to 21.
double contrast(const QColor& a, const QColor& b);

/// The colour, darker or lighter until it can be read on `base`: at least 4.5, the AA of WCAG.
QColor readableOn(const QColor& base, QColor color);

/// The text colour of a row's state on the palette's base; invalid where it has the window's own.
QColor textColor(RowState state, const QPalette& palette);

/// The sign of a state; null where it has none.
QIcon sign(RowState state, const QPalette& palette);

}  // namespace desktop
