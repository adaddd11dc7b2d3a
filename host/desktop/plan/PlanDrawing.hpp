#pragma once

#include "desktop/plan/PlanGeometry.hpp"
#include "desktop/plan/PlanMarks.hpp"
#include "desktop/plan/PlanViewport.hpp"

#include <QImage>
#include <QPalette>

namespace desktop {

/// A picture of footprints that is made piece by piece: a storey with a hundred thousand of them takes longer than a
/// window may stand still. The last finished picture can be shown until the next one is.
class PlanDrawing {
public:
    struct Item {
        const Footprint* footprint;
        Mark mark;  ///< None: drawn as part of the building.
    };

    /// Begins anew. @param paper  what is filled in first; transparent for a layer that goes over another.
    void start(const PlanViewport& viewport, qreal pixelRatio, const QPalette& palette, const QColor& paper,
               std::vector<Item> items);
    bool running() const { return next_ < items_.size() || !pending_.isNull(); }
    /// Draws for about this long. @return true once the picture is finished.
    bool draw(qint64 milliseconds);
    /// What is being drawn is not wanted any more, nor what has been.
    void clear();

    bool hasPicture() const { return !picture_.isNull(); }
    /// Paints the finished picture, moved and stretched to where its content lies now.
    void paint(QPainter& painter, const PlanViewport& now) const;

private:
    std::vector<Item> items_;
    std::size_t next_ = 0;
    QImage pending_, picture_;
    PlanViewport pendingViewport_, pictureViewport_;
    QPalette palette_;
};

}  // namespace desktop
