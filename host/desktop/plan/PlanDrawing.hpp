#pragma once

#include "desktop/plan/PlanGeometry.hpp"
#include "desktop/plan/PlanMarks.hpp"
#include "desktop/plan/PlanSigns.hpp"
#include "desktop/plan/PlanViewport.hpp"

#include <QFont>
#include <QImage>
#include <QPalette>
#include <variant>

namespace desktop {

class PlanPainter;

/// One thing to draw. What it points to stays until the geometry is cleared.
struct PlanItem {
    struct Shape {
        const Footprint* footprint;
        Mark mark;  ///< None: drawn as part of the building.
    };
    /// In place of a shape that is too small to be seen.
    struct Dot {
        const Footprint* footprint;
    };
    struct Label {
        const Footprint* footprint;
        const PlanLabel* label;
    };
    std::variant<Shape, Dot, Label, PlanSign> what;
};

/// What is in sight of a plan, in the order to draw: the footprints, then what is written on them. Where there are few
/// of them, none is too small to be seen: the signals of a railway are hundreds of metres apart.
std::vector<PlanItem> buildingItems(const PlanGeometry& geometry, const PlanViewport& viewport);
/// The marked ones: the most urgent on top, small ones on big ones, and the signs on all of them.
std::vector<PlanItem> markItems(const PlanGeometry& geometry, const PlanMarks* marks, const PlanViewport& viewport);

void drawItem(QPainter& painter, PlanPainter& plan, const PlanViewport& viewport, const QPalette& palette,
              const PlanItem& item);

/// A picture of a plan that is made piece by piece: a storey with a hundred thousand footprints takes longer than a
/// window may stand still. The last finished picture can be shown until the next one is.
class PlanDrawing {
public:
    struct Paper {
        qreal pixelRatio = 1;
        QPalette palette;
        QFont font;
        QColor color;  ///< What is filled in first; transparent for a layer that goes over another.
    };

    /// Begins anew.
    void start(const PlanViewport& viewport, const Paper& paper, std::vector<PlanItem> items);
    bool running() const { return !pending_.isNull(); }
    /// Draws for about this long. @return true once the picture is finished.
    bool draw(qint64 milliseconds);
    /// What is being drawn is not wanted any more, nor what has been.
    void clear();

    bool hasPicture() const { return !picture_.isNull(); }
    /// Paints the finished picture, moved and stretched to where its content lies now.
    void paint(QPainter& painter, const PlanViewport& now) const;

private:
    std::vector<PlanItem> items_;
    std::size_t next_ = 0;
    QImage pending_, picture_;
    PlanViewport pendingViewport_, pictureViewport_;
    Paper paper_;
};

}  // namespace desktop
