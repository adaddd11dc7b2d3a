#include "desktop/plan/PlanPainter.hpp"

#include "desktop/QtText.hpp"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

using model::PlanKind;

/// `part` of 255 of the text's colour in the background's.
QColor mixed(const QPalette& palette, int part) {
    const QColor text = palette.color(QPalette::Text), base = palette.color(QPalette::Base);
    const auto blend = [part](int a, int b) { return (a * part + b * (255 - part)) / 255; };
    return {blend(text.red(), base.red()), blend(text.green(), base.green()), blend(text.blue(), base.blue())};
}

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < 128;
}

/// Steps, glass and leaves in less than this are a smear.
constexpr double LeastDetail = 8;
/// An axis' tag stands in a circle.
constexpr double TagRadius = 10;

}  // namespace

PlanStyle planStyle(const QPalette& palette, PlanKind kind, bool cut) {
    const auto tone = [&](int part) { return mixed(palette, part); };
    switch (kind) {
        case PlanKind::Terrain:
            return {Qt::transparent, tone(45), Qt::SolidLine, tone(45)};
        case PlanKind::Floor:
            return {tone(8), tone(60), Qt::SolidLine, tone(60)};
        case PlanKind::Room:
            return {tone(14), tone(35), Qt::SolidLine, tone(35)};
        case PlanKind::Furniture:
            return {tone(6), tone(95), Qt::SolidLine, tone(95)};
        case PlanKind::Object:
            return {tone(22), tone(105), Qt::SolidLine, tone(105)};
        case PlanKind::Stair:
            return {tone(4), tone(120), Qt::SolidLine, tone(95)};
        case PlanKind::Structure:
            return cut ? PlanStyle{tone(170), tone(200), Qt::SolidLine, tone(200)}
                       : PlanStyle{tone(34), tone(110), Qt::SolidLine, tone(110)};
        case PlanKind::Window:
            return {tone(0), tone(130), Qt::SolidLine, tone(150)};
        case PlanKind::Door:
            return {tone(20), tone(130), Qt::SolidLine, tone(140)};
        case PlanKind::Opening:
            return {Qt::transparent, tone(110), Qt::DashLine, tone(110)};
        case PlanKind::Annotation:
            return {Qt::transparent, tone(120), Qt::SolidLine, tone(120)};
        case PlanKind::Grid:
            return {Qt::transparent, tone(90), Qt::DashDotLine, tone(90)};
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

QPolygonF PlanPainter::onScreen(const QPolygonF& points) const {
    QPolygonF pixels;
    pixels.reserve(points.size());
    for (const QPointF& point : points) pixels << viewport_.toScreen(point);
    return pixels;
}

void PlanPainter::drawRings(const Footprint& footprint) {
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
    if (!path.isEmpty()) painter_.drawPath(path);
}

void PlanPainter::drawLines(const Footprint& footprint) {
    for (const QPolygonF& line : footprint.lines) painter_.drawPolyline(onScreen(line));
}

void PlanPainter::setStyle(const Footprint& footprint, Mark mark) {
    const Style wanted{footprint.kind, footprint.cut, mark};
    if (style_ == wanted) return;
    style_ = wanted;
    if (mark == Mark::None) {
        const PlanStyle plain = planStyle(palette_, footprint.kind, footprint.cut);
        painter_.setPen(QPen(plain.line, 1, plain.pen));
        painter_.setBrush(plain.fill);
        return;
    }
    const QColor line = markColor(palette_, mark);
    QColor fill = line;
    // An outline, with so much of its colour inside that it is seen which side that is.
    fill.setAlphaF(footprint.kind <= PlanKind::Room ? 0.08F : 0.3F);
    painter_.setPen(QPen(line, 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.setBrush(fill);
}

void PlanPainter::draw(const Footprint& footprint, Mark mark) {
    setStyle(footprint, mark);
    const QRectF box = viewport_.toScreen(footprint.box);
    const double size = std::max(box.width(), box.height());
    if (footprint.rings.isEmpty()) {
        drawLines(footprint);
        return;
    }
    const bool shaped = footprint.rings.front().size() > 1;
    if (!shaped || size < 1) {
        if (mark == Mark::None) painter_.drawPoint(box.center());
        return;
    }
    drawRings(footprint);
    if (mark != Mark::None || footprint.lines.isEmpty() || size < LeastDetail) return;
    painter_.setPen(QPen(planStyle(palette_, footprint.kind, footprint.cut).detail, 1));
    drawLines(footprint);
    style_.reset();
}

void PlanPainter::drawDot(const Footprint& footprint) {
    constexpr double Radius = 2.5;
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(planStyle(palette_, footprint.kind, true).line);
    painter_.drawEllipse(viewport_.toScreen(footprint.box).center(), Radius, Radius);
    style_.reset();
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
        } else if (footprint.rings.isEmpty()) {
            drawLines(footprint);
        } else {
            drawRings(footprint);
        }
    }
    style_.reset();
}

void PlanPainter::drawLabel(const Footprint& footprint, const PlanLabel& label) {
    style_.reset();
    if (footprint.kind == PlanKind::Grid) {
        drawTags(footprint, label.tags);
        return;
    }
    constexpr double Gap = 6;
    const QSizeF space = label.room * viewport_.scale - QSizeF(Gap, Gap);
    const QFontMetricsF metrics(painter_.font());
    // Most rooms of a whole building are too small for any text: nothing is measured for them.
    if (space.height() < metrics.height() || space.width() < metrics.height()) return;
    const QStringList lines = fittingLines(
        label, space, [&](const QString& line) { return QSizeF(metrics.horizontalAdvance(line), metrics.height()); });
    // Tables and beds under it must not cross it out.
    QColor halo = planStyle(palette_, PlanKind::Room, false).fill;
    halo.setAlphaF(0.75F);
    const QPointF middle = viewport_.toScreen(label.middle);
    double y = middle.y() - metrics.height() * static_cast<double>(lines.size()) / 2 + metrics.ascent();
    for (const QString& line : lines) {
        const double width = metrics.horizontalAdvance(line), x = middle.x() - width / 2;
        painter_.fillRect(QRectF(x - 2, y - metrics.ascent(), width + 4, metrics.height()), halo);
        painter_.setPen(mixed(palette_, 215));
        painter_.drawText(QPointF(x, y), line);
        y += metrics.height();
    }
}

/// At both ends of each axis, or where it leaves the view.
void PlanPainter::drawTags(const Footprint& footprint, const QStringList& tags) {
    const QRectF inside =
        QRectF(QPointF(), viewport_.size).adjusted(TagRadius + 2, TagRadius + 2, -TagRadius - 2, -TagRadius - 2);
    painter_.setBrush(palette_.color(QPalette::Base));
    const QFontMetricsF metrics(painter_.font());
    for (qsizetype i = 0; i < std::min(tags.size(), footprint.lines.size()); ++i) {
        if (tags[i].isEmpty()) continue;
        const QPolygonF line = onScreen(footprint.lines[i]);
        const QPointF ends[] = {line.front(), line.back()};
        // The part of a straight axis that is in sight, as fractions of its length.
        const QPointF way = ends[1] - ends[0];
        double from = 0, to = 1;
        const auto clip = [&](double at, double step, double low, double high) {
            if (std::abs(step) < 1e-9) {
                if (at < low || at > high) to = -1;
                return;
            }
            const auto [first, second] = std::minmax((low - at) / step, (high - at) / step);
            from = std::max(from, first);
            to = std::min(to, second);
        };
        clip(ends[0].x(), way.x(), inside.left(), inside.right());
        clip(ends[0].y(), way.y(), inside.top(), inside.bottom());
        if (from > to) continue;
        const double half = std::max(TagRadius, metrics.horizontalAdvance(tags[i]) / 2 + 4);
        for (const double at : {from, to}) {
            const QPointF place = ends[0] + way * at;
            painter_.setPen(mixed(palette_, 110));
            painter_.drawRoundedRect(QRectF(place.x() - half, place.y() - TagRadius, 2 * half, 2 * TagRadius),
                                     TagRadius, TagRadius);
            painter_.setPen(mixed(palette_, 215));
            painter_.drawText(QRectF(place.x() - half, place.y() - TagRadius, 2 * half, 2 * TagRadius), Qt::AlignCenter,
                              tags[i]);
        }
    }
}

}  // namespace desktop
