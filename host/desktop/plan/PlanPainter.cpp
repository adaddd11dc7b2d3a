#include "desktop/plan/PlanPainter.hpp"

#include "desktop/QtText.hpp"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace desktop {

namespace {

/// `part` of 255 of the text's colour in the background's.
QColor mixed(const QPalette& palette, int part) {
    const QColor text = palette.color(QPalette::Text), base = palette.color(QPalette::Base);
    const auto blend = [part](int a, int b) { return (a * part + b * (255 - part)) / 255; };
    return {blend(text.red(), base.red()), blend(text.green(), base.green()), blend(text.blue(), base.blue())};
}

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < 128;
}

/// A marked element smaller than this gets a dot of this size, to be found in a plan of the whole building.
constexpr double LeastMark = 9;

}  // namespace

PlanStyle planStyle(const QPalette& palette, PlanLayer layer) {
    switch (layer) {
        case PlanLayer::Ground:
            return {Qt::transparent, mixed(palette, 40)};
        case PlanLayer::Zone:
            return {mixed(palette, 10), mixed(palette, 30)};
        case PlanLayer::Floor:
            return {Qt::transparent, mixed(palette, 70)};
        case PlanLayer::Object:
            return {mixed(palette, 30), mixed(palette, 90)};
        case PlanLayer::Structure:
            return {mixed(palette, 105), mixed(palette, 165)};
        case PlanLayer::Filling:
            return {mixed(palette, 12), mixed(palette, 140)};
    }
    return {};
}

QColor markColor(const QPalette& palette, Mark mark) {
    const bool dark = isDark(palette);
    switch (mark) {
        case Mark::None:
            break;
        case Mark::Unchanged:
            return mixed(palette, 120);
        case Mark::Done:
            return dark ? QColor(0x4C, 0xC3, 0x7B) : QColor(0x1E, 0x8E, 0x4E);
        case Mark::Open:
            return dark ? QColor(0xF2, 0xB8, 0x3C) : QColor(0xE0, 0x92, 0x00);
        case Mark::Ticked:
            return dark ? QColor(0x5A, 0xA2, 0xFF) : QColor(0x1F, 0x6F, 0xD6);
        case Mark::Error:
            return dark ? QColor(0xFF, 0x6B, 0x6B) : QColor(0xCC, 0x2F, 0x2F);
    }
    return Qt::transparent;
}

QString markText(Mark mark) {
    switch (mark) {
        case Mark::None:
            break;
        case Mark::Unchanged:
            return QCoreApplication::translate("desktop::PlanView", "nothing to do");
        case Mark::Done:
            return QCoreApplication::translate("desktop::PlanView", "done");
        case Mark::Open:
            return QCoreApplication::translate("desktop::PlanView", "not ticked");
        case Mark::Ticked:
            return QCoreApplication::translate("desktop::PlanView", "ticked");
        case Mark::Error:
            return QCoreApplication::translate("desktop::PlanView", "failed");
    }
    return {};
}

bool inSight(const Footprint& footprint, const PlanViewport& viewport) {
    const QRectF visible = viewport.visible();
    const QRectF& box = footprint.box;  // may be without width or height, which QRectF::intersects takes for empty
    return box.left() <= visible.right() && box.right() >= visible.left() && box.top() <= visible.bottom() &&
           box.bottom() >= visible.top();
}

void PlanPainter::drawRings(const Footprint& footprint) {
    const auto onScreen = [this](const QPolygonF& ring) {
        QPolygonF points;
        points.reserve(ring.size());
        for (const QPointF& point : ring) points << viewport_.toScreen(point);
        return points;
    };
    // Most have one ring, and a polygon is drawn faster than a path.
    if (footprint.rings.size() == 1) {
        painter_.drawPolygon(onScreen(footprint.rings.front()));
        return;
    }
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    for (const QPolygonF& ring : footprint.rings) {
        path.addPolygon(onScreen(ring));
        path.closeSubpath();
    }
    painter_.drawPath(path);
}

void PlanPainter::setStyle(const Footprint& footprint, Mark mark) {
    const std::pair wanted(footprint.layer, mark);
    if (style_ == wanted) return;
    style_ = wanted;
    if (mark == Mark::None) {
        const PlanStyle plain = planStyle(palette_, footprint.layer);
        painter_.setPen(QPen(plain.line, 1));
        painter_.setBrush(plain.fill);
        return;
    }
    const QColor line = markColor(palette_, mark);
    QColor fill = line;
    // A slab's mark must not hide what stands on it.
    fill.setAlphaF(footprint.layer <= PlanLayer::Floor ? 0.22F : 0.6F);
    painter_.setPen(QPen(line, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.setBrush(fill);
}

void PlanPainter::draw(const Footprint& footprint, Mark mark) {
    setStyle(footprint, mark);
    const QRectF size = viewport_.toScreen(footprint.box);
    const double least = mark == Mark::None ? 1 : LeastMark;
    if (footprint.rings.front().size() > 1 && (size.width() >= least || size.height() >= least)) {
        drawRings(footprint);
    } else if (mark == Mark::None) {
        painter_.drawPoint(size.center());
    } else {
        painter_.drawEllipse(size.center(), LeastMark / 2, LeastMark / 2);
    }
}

void PlanPainter::drawSelection(const Footprint& footprint) {
    const QColor color = palette_.color(QPalette::Highlight);
    QColor halo = palette_.color(QPalette::Base);
    halo.setAlphaF(0.85F);
    painter_.setBrush(Qt::NoBrush);
    const QRectF size = viewport_.toScreen(footprint.box);
    const bool small = size.width() < LeastMark && size.height() < LeastMark;
    for (const QPen& pen : {QPen(halo, 6), QPen(color, 3)}) {
        painter_.setPen(pen);
        if (small) {
            painter_.drawEllipse(size.center(), LeastMark, LeastMark);
        } else {
            drawRings(footprint);
        }
    }
}

void PlanPainter::drawLegend(const PlanMarks& marks) {
    QStringList texts;
    std::vector<Mark> used;
    for (const Mark mark : MarksByUrgency) {
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
    QColor background = palette_.color(QPalette::Window);
    background.setAlphaF(0.93F);
    QColor frame = palette_.color(QPalette::Text);
    frame.setAlphaF(0.25F);
    painter_.setPen(frame);
    painter_.setBrush(background);
    painter_.drawRoundedRect(box, 4, 4);
    double y = box.top() + padding;
    for (std::size_t i = 0; i < used.size(); ++i, y += line) {
        const QRectF square(box.left() + padding, y + (line - swatch) / 2, swatch, swatch);
        painter_.fillRect(square, markColor(palette_, used[i]));
        painter_.setPen(palette_.color(QPalette::WindowText));
        painter_.drawText(QRectF(square.right() + gap, y, width + 1, line), Qt::AlignVCenter | Qt::AlignLeft,
                          texts[static_cast<qsizetype>(i)]);
    }
}

}  // namespace desktop
