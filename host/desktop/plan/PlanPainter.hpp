#pragma once

#include "desktop/plan/PlanGeometry.hpp"
#include "desktop/plan/PlanMarks.hpp"
#include "desktop/plan/PlanViewport.hpp"

#include <QPalette>

class QPainter;

namespace desktop {

/// Draws plans. Knows no widget, so that a drawing can go anywhere.
class PlanPainter {
public:
    PlanPainter(QPainter& target, const PlanViewport& port, const QPalette& palette)
        : painter(target), viewport(port), colors(palette) {}

    void drawStorey(const std::vector<Footprint>& footprints);
    /// Those of the storey that bear a mark, the most urgent on top.
    void drawMarks(const std::vector<Footprint>& footprints, const PlanMarks& marks);
    void drawSelection(const Footprint& footprint);
    /// In the lower right corner: each mark in use with its colour and number of rows.
    void drawLegend(const PlanMarks& marks);

private:
    bool inSight(const Footprint& footprint) const;
    QPolygonF onScreen(const Footprint& footprint) const;

    QPainter& painter;
    const PlanViewport& viewport;
    const QPalette& colors;
};

}  // namespace desktop
