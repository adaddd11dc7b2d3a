#include "desktop/plan/PlanViewport.hpp"

#include <algorithm>

namespace desktop {

namespace {

/// Beyond these nobody sees anything, and the arithmetic of pixels would suffer.
constexpr double leastScale = 1e-6, greatestScale = 1e5;

}  // namespace

void PlanViewport::zoom(double factor, const QPointF& pixel) {
    const QPointF fixed = toModel(pixel);
    scale = std::clamp(scale * factor, leastScale, greatestScale);
    center += fixed - toModel(pixel);
}

void PlanViewport::fit(const QRectF& box, double margin) {
    center = box.center();
    const double width = std::max(size.width() - 2 * margin, 1.0);
    const double height = std::max(size.height() - 2 * margin, 1.0);
    // A box without extent (a single point) is shown at a scale that leaves something around it.
    const double least = 1e-3;
    scale = std::clamp(std::min(width / std::max(box.width(), least), height / std::max(box.height(), least)),
                       leastScale, greatestScale);
}

}  // namespace desktop
