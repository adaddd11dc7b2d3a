#include "desktop/plan/PlanFrame.hpp"

#include "desktop/QtText.hpp"
#include "desktop/plan/PlanPainter.hpp"
#include "desktop/plan/PlanSigns.hpp"

#include <QCoreApplication>
#include <QLocale>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

constexpr double Margin = 10;
constexpr double LongestBar = 140, ShortestBar = 30;
constexpr double ArrowLength = 34;

/// A plan lies below: what is written on it must be read on any of its tones.
void drawWithHalo(QPainter& painter, const QPointF& place, const QString& text, const QPalette& palette) {
    QColor halo = palette.color(QPalette::Base);
    halo.setAlphaF(0.8F);
    const QFontMetricsF metrics(painter.font());
    painter.fillRect(
        QRectF(place.x() - 2, place.y() - metrics.ascent(), metrics.horizontalAdvance(text) + 4, metrics.height()),
        halo);
    painter.setPen(palette.color(QPalette::Text));
    painter.drawText(place, text);
}

}  // namespace

double roundLength(double most) {
    if (!(most > 0) || !std::isfinite(most)) return 0;
    const double power = std::pow(10, std::floor(std::log10(most)));
    if (!(power > 0)) return 0;
    for (const double step : {5.0, 2.0}) {
        if (step * power <= most) return step * power;
    }
    return power;
}

QString lengthText(double metres) {
    const QString amount = metres < 1e-3 ? QLocale::system().toString(metres, 'g', 1)
                                         : QLocale::system().toString(metres, 'f', metres < 1 ? 3 : 0);
    const QChar point = QLocale::system().decimalPoint().front();
    qsizetype end = amount.size();
    if (amount.contains(point) && metres >= 1e-3) {
        while (amount[end - 1] == u'0') --end;
        if (amount[end - 1] == point) --end;
    }
    return QCoreApplication::translate("desktop::PlanView", "%1 m").arg(amount.left(end));
}

void drawScaleBar(QPainter& painter, const QRectF& area, const PlanViewport& viewport, const QPalette& palette,
                  double metresPerUnit) {
    const double pixelsPerMetre = viewport.scale / metresPerUnit;
    const double metres = roundLength(std::min(LongestBar, area.width() / 3) / pixelsPerMetre);
    const double length = metres * pixelsPerMetre;
    if (!(length >= ShortestBar) || area.height() < 60) return;
    const QPointF from(area.left() + Margin, area.bottom() - Margin), to = from + QPointF(length, 0);
    const QColor ink = palette.color(QPalette::Text);
    QColor halo = palette.color(QPalette::Base);
    halo.setAlphaF(0.8F);
    painter.fillRect(QRectF(from - QPointF(3, 9), QSizeF(length + 6, 12)), halo);
    painter.setPen(QPen(ink, 1));
    painter.setBrush(palette.color(QPalette::Base));
    painter.drawRect(QRectF(from - QPointF(0, 5), QSizeF(length, 5)));
    painter.fillRect(QRectF(from - QPointF(0, 5), QSizeF(length / 2, 5)), ink);
    const QString text = lengthText(metres);
    drawWithHalo(painter, QPointF(to.x() - QFontMetricsF(painter.font()).horizontalAdvance(text), from.y() - 9), text,
                 palette);
}

void drawNorthArrow(QPainter& painter, const QRectF& area, const QPalette& palette, const QPointF& north) {
    if (area.height() < 120 || area.width() < 120) return;
    const QFontMetricsF metrics(painter.font());
    const double room = ArrowLength / 2 + metrics.height();
    const QPointF middle(area.right() - Margin - room, area.top() + Margin + room);
    const QPointF up(north.x(), -north.y()), side(-up.y(), up.x());
    const QPointF tip = middle + up * ArrowLength / 2, foot = middle - up * ArrowLength / 2;
    QColor halo = palette.color(QPalette::Base);
    halo.setAlphaF(0.8F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(halo);
    painter.drawEllipse(middle, ArrowLength / 2 + 4, ArrowLength / 2 + 4);
    const QColor ink = palette.color(QPalette::Text);
    painter.setPen(QPen(ink, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(ink);
    const QPointF notch = middle - up * (ArrowLength / 4);
    painter.drawPolygon(QPolygonF({tip, foot + side * 9, notch}));
    painter.setBrush(palette.color(QPalette::Base));
    painter.drawPolygon(QPolygonF({tip, foot - side * 9, notch}));
    // Beyond the tip: at the foot it would seem to point the other way.
    const QString letter = QCoreApplication::translate("desktop::PlanView", "N", "north");
    const QPointF place = tip + up * metrics.height() * 0.7;
    drawWithHalo(
        painter,
        QPointF(place.x() - metrics.horizontalAdvance(letter) / 2, place.y() + metrics.ascent() - metrics.height() / 2),
        letter, palette);
}

void drawLegend(QPainter& painter, const QRectF& area, const QPalette& palette, const PlanMarks& marks) {
    QStringList texts;
    std::vector<Mark> used;
    for (const Mark mark : MarksByUrgency) {
        if (!marks.rowCount(mark)) continue;
        used.push_back(mark);
        texts += QStringLiteral("%1 %2").arg(number(static_cast<qint64>(marks.rowCount(mark))), markText(mark));
    }
    if (used.empty()) return;
    const QFontMetricsF metrics(painter.font());
    const double line = std::max(metrics.height(), 14.0) + 2, padding = 8, swatch = 14, gap = 7, margin = 8;
    double width = 0;
    for (const QString& text : texts) width = std::max(width, metrics.horizontalAdvance(text));
    const double height = line * static_cast<double>(used.size()) + 2 * padding;
    const double across = width + swatch + gap + 2 * padding;
    const QRectF box(area.right() - across - margin, area.bottom() - height - margin, across, height);
    if (box.top() < area.top()) return;  // the line below the list counts the rows, too
    QColor background = palette.color(QPalette::Window);
    background.setAlphaF(0.93F);
    QColor frame = palette.color(QPalette::Text);
    frame.setAlphaF(0.25F);
    painter.setPen(frame);
    painter.setBrush(background);
    painter.drawRoundedRect(box, 4, 4);
    double y = box.top() + padding;
    for (std::size_t i = 0; i < used.size(); ++i, y += line) {
        const QRectF square(box.left() + padding, y + (line - swatch) / 2, swatch, swatch);
        drawMark(painter, square, palette, used[i]);
        painter.setPen(palette.color(QPalette::WindowText));
        painter.drawText(QRectF(square.right() + gap, y, width + 1, line), Qt::AlignVCenter | Qt::AlignLeft,
                         texts[static_cast<qsizetype>(i)]);
    }
}

}  // namespace desktop
