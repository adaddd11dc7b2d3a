#pragma once
// What stands around a plan: scale bar, north arrow, legend of the marks.

#include "desktop/plan/PlanMarks.hpp"
#include "desktop/plan/PlanViewport.hpp"

#include <QPalette>
#include <optional>

class QPainter;
class QString;

namespace desktop {

/// The longest round length that is not longer than `most`, both in metres: 1, 2 or 5 with any number of noughts. 0 for
/// what is no length.
double roundLength(double most);
/// "5 m", "0.2 m"
QString lengthText(double metres);

/// In the lower left corner of the area: a round length. Nothing where no round length has room.
void drawScaleBar(QPainter& painter, const QRectF& area, const PlanViewport& viewport, const QPalette& palette,
                  double metresPerUnit);
/// In the upper right corner. @param north  In the model's coordinates.
void drawNorthArrow(QPainter& painter, const QRectF& area, const QPalette& palette, const QPointF& north);
/// In the lower right corner: each mark in use with its sign and number of rows. Nothing where not all have room.
void drawLegend(QPainter& painter, const QRectF& area, const QPalette& palette, const PlanMarks& marks);

}  // namespace desktop
