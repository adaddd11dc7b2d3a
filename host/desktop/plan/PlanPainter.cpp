#include "desktop/plan/PlanPainter.hpp"

#include "desktop/Text.hpp"
#include "desktop/plan/PlanColors.hpp"

#include <QPainter>
#include <algorithm>

namespace desktop {

namespace {

/// Marks in the order of the legend.
constexpr Mark legendOrder[] = {Mark::Error, Mark::Ticked, Mark::Open, Mark::Done, Mark::Unchanged};
/// A marked element smaller than this gets a dot of this size, to be found in a plan of the whole building.
constexpr double leastMark = 9;

}  // namespace

bool inSight(const Footprint& footprint, const PlanViewport& viewport) {
    const QRectF visible = viewport.visible();
    const QRectF& box = footprint.box;  // may be without width or height, which QRectF::intersects takes for empty
    return box.left() <= visible.right() && box.right() >= visible.left() && box.top() <= visible.bottom() &&
           box.bottom() >= visible.top();
}

QPolygonF PlanPainter::onScreen(const Footprint& footprint) const {
    QPolygonF points;
    points.reserve(footprint.outline.size());
    for (const QPointF& point : footprint.outline) points << viewport_.toScreen(point);
    return points;
}

void PlanPainter::setStyle(const Footprint& footprint, Mark mark) {
    const std::pair wanted(footprint.layer, mark);
    if (style_ == wanted) return;
    style_ = wanted;
    if (mark == Mark::None) {
        const PlanStyle plain = planStyle(colors_, footprint.layer);
        painter_.setPen(QPen(plain.line, 1));
        painter_.setBrush(plain.fill);
        return;
    }
    const QColor line = markColor(colors_, mark);
    QColor fill = line;
    // A slab's mark must not hide what stands on it.
    fill.setAlphaF(footprint.layer <= PlanLayer::Floor ? 0.22F : 0.6F);
    painter_.setPen(QPen(line, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.setBrush(fill);
}

void PlanPainter::draw(const Footprint& footprint, Mark mark) {
    setStyle(footprint, mark);
    const QRectF size = viewport_.toScreen(footprint.box);
    const double least = mark == Mark::None ? 1 : leastMark;
    if (footprint.outline.size() > 1 && (size.width() >= least || size.height() >= least)) {
        painter_.drawPolygon(onScreen(footprint));
    } else if (mark == Mark::None) {
        painter_.drawPoint(size.center());
    } else {
        painter_.drawEllipse(size.center(), leastMark / 2, leastMark / 2);
    }
}

void PlanPainter::drawSelection(const Footprint& footprint) {
    const QColor color = colors_.color(QPalette::Highlight);
    QColor halo = colors_.color(QPalette::Base);
    halo.setAlphaF(0.85F);
    painter_.setBrush(Qt::NoBrush);
    const QRectF size = viewport_.toScreen(footprint.box);
    const bool small = size.width() < leastMark && size.height() < leastMark;
    for (const QPen& pen : {QPen(halo, 6), QPen(color, 3)}) {
        painter_.setPen(pen);
        if (small) {
            painter_.drawEllipse(size.center(), leastMark, leastMark);
        } else {
            painter_.drawPolygon(onScreen(footprint));
        }
    }
}

void PlanPainter::drawLegend(const PlanMarks& marks) {
    QStringList texts;
    std::vector<Mark> used;
    for (const Mark mark : legendOrder) {
        if (!marks.rowCount(mark)) continue;
        used.push_back(mark);
        texts += QStringLiteral("%1 %2").arg(number(static_cast<qint64>(marks.rowCount(mark))), markText(mark));
    }
    if (used.empty()) return;
    const QFontMetricsF metrics(painter_.font());
    const double line = metrics.height() + 2, padding = 8, swatch = 10, gap = 7, margin = 8;
    double width = 0;
    for (const QString& text : texts) width = std::max(width, metrics.horizontalAdvance(text));
    const double height = line * static_cast<double>(used.size()) + 2 * padding;
    const double across = width + swatch + gap + 2 * padding;
    const QRectF box(viewport_.size.width() - across - margin, viewport_.size.height() - height - margin, across,
                     height);
    QColor background = colors_.color(QPalette::Window);
    background.setAlphaF(0.93F);
    QColor frame = colors_.color(QPalette::Text);
    frame.setAlphaF(0.25F);
    painter_.setPen(frame);
    painter_.setBrush(background);
    painter_.drawRoundedRect(box, 4, 4);
    double y = box.top() + padding;
    for (std::size_t i = 0; i < used.size(); ++i, y += line) {
        const QRectF square(box.left() + padding, y + (line - swatch) / 2, swatch, swatch);
        painter_.fillRect(square, markColor(colors_, used[i]));
        painter_.setPen(colors_.color(QPalette::WindowText));
        painter_.drawText(QRectF(square.right() + gap, y, width + 1, line), Qt::AlignVCenter | Qt::AlignLeft,
                          texts[static_cast<qsizetype>(i)]);
    }
}

}  // namespace desktop
