#pragma once

#include "desktop/plan/PlanGeometry.hpp"
#include "desktop/plan/PlanMarks.hpp"

#include <QColor>
#include <QPalette>
#include <QString>

namespace desktop {

struct PlanStyle {
    QColor fill, line;
};

/// The model's own colours, mixed from the palette: the plan is dark where the windows are.
PlanStyle planStyle(const QPalette& palette, PlanLayer layer);
QColor markColor(const QPalette& palette, Mark mark);
/// What the legend says of a mark.
QString markText(Mark mark);

}  // namespace desktop
