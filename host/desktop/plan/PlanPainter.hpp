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
    Qt::PenStyle pen = Qt::SolidLine;
    QColor detail;  ///< Of the lines drawn over the outline.
};

/// The model's own colours, mixed from the palette: the plan is dark where the windows are.
PlanStyle planStyle(const QPalette& palette, model::PlanKind kind, bool cut);
QColor markColor(const QPalette& palette, Mark mark);
/// What the legend says of a mark.
QString markText(Mark mark);

/// Draws footprints and what is written on them. Knows no widget, so that a drawing can go anywhere.
class PlanPainter {
public:
    PlanPainter(QPainter& painter, const PlanViewport& viewport, const QPalette& palette)
        : painter_(painter), viewport_(viewport), palette_(palette) {}

    /// @param mark  None: as part of the building.
    void draw(const Footprint& footprint, Mark mark);
    void drawDot(const Footprint& footprint);
    void drawSelection(const Footprint& footprint);
    /// As much of it as has room.
    void drawLabel(const Footprint& footprint, const PlanLabel& label);

private:
    void setStyle(const Footprint& footprint, Mark mark);
    void drawRings(const Footprint& footprint);
    void drawLines(const Footprint& footprint);
    void drawTags(const Footprint& footprint, const QStringList& tags);
    QPolygonF onScreen(const QPolygonF& points) const;

    QPainter& painter_;
    const PlanViewport& viewport_;
    const QPalette& palette_;
    struct Style {
        model::PlanKind kind;
        bool cut;
        Mark mark;
        bool operator==(const Style&) const = default;
    };
    std::optional<Style> style_;  ///< What pen and brush are set for.
};

/// Whether any of it is in the view.
bool inSight(const Footprint& footprint, const PlanViewport& viewport);

/// An element that is smaller than this on the screen is not to be recognized; where it is marked, its sign stands for
/// it.
inline constexpr double LeastMark = 9;

}  // namespace desktop
