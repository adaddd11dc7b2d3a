#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <algorithm>

namespace desktop {

/// Where the plan is looked at: which point of the model lies in the middle of the view, and how big a unit is. The
/// model's y grows to the north, the screen's to the bottom.
class PlanViewport {
public:
    /// Beyond these nobody sees anything, and the arithmetic of pixels would suffer.
    static constexpr double LeastScale = 1e-6, GreatestScale = 1e5;

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
    void zoom(double factor, const QPointF& pixel) {
        const QPointF fixed = toModel(pixel);
        scale = std::clamp(scale * factor, LeastScale, GreatestScale);
        center += fixed - toModel(pixel);
    }
    /// Shows the whole box with a margin around it.
    void fit(const QRectF& box, double margin) {
        center = box.center();
        const double width = std::max(size.width() - 2 * margin, 1.0);
        const double height = std::max(size.height() - 2 * margin, 1.0);
        // A box without extent (a single point) is shown at a scale that leaves something around it.
        const double least = 1e-3;
        scale = std::clamp(std::min(width / std::max(box.width(), least), height / std::max(box.height(), least)),
                           LeastScale, GreatestScale);
    }

    friend bool operator==(const PlanViewport&, const PlanViewport&) = default;
};

}  // namespace desktop
