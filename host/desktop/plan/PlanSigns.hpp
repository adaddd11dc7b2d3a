#pragma once
// How many marked elements are shown where only few have room.

#include "desktop/plan/PlanMarks.hpp"
#include "desktop/plan/PlanViewport.hpp"

#include <QPalette>
#include <vector>

class QPainter;

namespace desktop {

struct Footprint;

/// A mark's sign: of one element, or of all that have this mark in one place.
struct PlanSign {
    Mark mark = Mark::None;
    QPointF place;  ///< In the model's coordinates.
    int count = 0;
};

/// Where an element's sign is put: inside of it, or on its edge.
QPointF signPlace(const Footprint& footprint);

/// Puts the signs together that would lie one upon the other: those of one cell of the screen. The cells keep their
/// places in the model while the plan is moved. The most urgent last.
std::vector<PlanSign> gatheredSigns(const std::vector<std::pair<const Footprint*, Mark>>& marked,
                                    const PlanViewport& viewport);

void drawSign(QPainter& painter, const PlanViewport& viewport, const QPalette& palette, const PlanSign& sign);
/// The picture of a mark, as the signs have it, in a square.
void drawMark(QPainter& painter, const QRectF& square, const QPalette& palette, Mark mark);

}  // namespace desktop
