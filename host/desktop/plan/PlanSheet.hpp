#pragma once
// A plan on paper: at a round scale, with what it shows written below.

#include "desktop/plan/PlanGeometry.hpp"
#include "desktop/plan/PlanMarks.hpp"

class QPainter;

namespace desktop {

/// Sheets are laid out in these, whatever resolution they are printed with.
inline constexpr double SheetDotsPerInch = 96;

struct PlanSheet {
    const PlanGeometry* geometry = nullptr;  ///< All that it shows has been read.
    const PlanMarks* marks = nullptr;        ///< Null for none.
    QRectF extent;                           ///< What is to be on it, in the model's coordinates.
    QString storey, file;
};

/// The smallest N of a scale 1:N that is 1, 2, 2.5 or 5 with noughts and shows `extent` in so many dots. 0 where there
/// is none.
double sheetScale(const QSizeF& extent, const QSizeF& dots, double metresPerUnit);

/// @param paper  The sheet's size, without what a printer cannot print on, in dots.
void drawSheet(QPainter& painter, const QSizeF& paper, const PlanSheet& sheet);

}  // namespace desktop
