#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace desktop {

/// Where the plan is looked at: which point of the model lies in the middle of the view, and how big a unit is. The
/// model's y grows to the north, the screen's to the bottom.
class PlanViewport {
public:
    QSizeF size;
    QPointF center;
    double scale = 1;  ///< Pixels for a unit of the model.

    QPointF toScreen(const QPointF& point) const {
        return {(point.x() - center.x()) * scale + size.width() / 2,
                (center.y() - point.y()) * scale + size.height() / 2};
    }
    QPointF toModel(const QPointF& pixel) const {
        return {(pixel.x() - size.width() / 2) / scale + center.x(),
                center.y() - (pixel.y() - size.height() / 2) / scale};
    }
    QRectF toScreen(const QRectF& box) const {
        return QRectF(toScreen(box.topLeft()), toScreen(box.bottomRight())).normalized();
    }
    /// The part of the model in sight.
    QRectF visible() const { return QRectF(toModel({0, 0}), toModel({size.width(), size.height()})).normalized(); }

    void pan(const QPointF& pixels) { center += QPointF(-pixels.x() / scale, pixels.y() / scale); }
    /// Zooms so that the point under `pixel` stays there.
    void zoom(double factor, const QPointF& pixel);
    /// Shows the whole box with a margin around it.
    void fit(const QRectF& box, double margin);

    friend bool operator==(const PlanViewport&, const PlanViewport&) = default;
};

}  // namespace desktop
