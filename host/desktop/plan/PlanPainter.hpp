#pragma once

#include "desktop/plan/PlanGeometry.hpp"
#include "desktop/plan/PlanMarks.hpp"
#include "desktop/plan/PlanViewport.hpp"

#include <QColor>
#include <QPalette>
#include <QString>

class QPainter;

namespace desktop {

struct PlanStyle {
    QColor fill, line;
};

/// The model's own colours, mixed from the palette: the plan is dark where the windows are.
PlanStyle planStyle(const QPalette& palette, PlanLayer layer);
QColor markColor(const QPalette& palette, Mark mark);
/// What the legend says of a mark.
QString markText(Mark mark);

/// Draws plans. Knows no widget, so that a drawing can go anywhere.
class PlanPainter {
public:
    PlanPainter(QPainter& painter, const PlanViewport& viewport, const QPalette& palette)
        : painter_(painter), viewport_(viewport), palette_(palette) {}

    /// @param mark  None: as part of the building.
    void draw(const Footprint& footprint, Mark mark);
    void drawSelection(const Footprint& footprint);
    /// In the lower right corner: each mark in use with its colour and number of rows.
    void drawLegend(const PlanMarks& marks);

private:
    void setStyle(const Footprint& footprint, Mark mark);
    void drawRings(const Footprint& footprint);

    QPainter& painter_;
    const PlanViewport& viewport_;
    const QPalette& palette_;
    std::optional<std::pair<PlanLayer, Mark>> style_;  ///< What pen and brush are set for.
};

/// Whether any of it is in the view.
bool inSight(const Footprint& footprint, const PlanViewport& viewport);

}  // namespace desktop
