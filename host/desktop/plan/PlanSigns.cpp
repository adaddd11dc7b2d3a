#include "desktop/plan/PlanSigns.hpp"

#include "desktop/QtText.hpp"
#include "desktop/plan/PlanPainter.hpp"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace desktop {

namespace {

/// In pixels: signs in two cells side by side hardly touch.
constexpr double CellSide = 36;
constexpr double SignRadius = 8;

/// On a square of 16, as the rows of the review have them.
QList<QLineF> strokes(Mark mark) {
    switch (mark) {
        case Mark::Done:
            return {{4.5, 8.5, 7, 11}, {7, 11, 11.5, 5}};
        case Mark::Error:
            return {{5, 5, 11, 11}, {11, 5, 5, 11}};
        case Mark::Unchanged:
            return {{5, 8, 11, 8}};
        case Mark::Ticked:
            return {{5, 8, 11, 8}, {8, 5, 8, 11}};
        case Mark::Open:
        case Mark::None:
            break;
    }
    return {};
}

}  // namespace

QPointF signPlace(const Footprint& footprint) {
    const QPointF middle = footprint.box.center();
    bool inside = false;
    const QPolygonF* longest = nullptr;
    for (const QPolygonF& ring : footprint.rings) {
        if (ring.containsPoint(middle, Qt::OddEvenFill)) inside = !inside;
        if (!longest || ring.size() > longest->size()) longest = &ring;
    }
    if (inside || !longest || longest->size() < 2) return middle;
    // Of an angle or a ring, whose middle lies outside of it: on its longest edge.
    QPointF place = middle;
    double best = -1;
    for (qsizetype i = 0; i < longest->size(); ++i) {
        const QPointF a = (*longest)[i], b = (*longest)[(i + 1) % longest->size()];
        const double length = std::hypot(b.x() - a.x(), b.y() - a.y());
        if (length <= best) continue;
        best = length;
        place = (a + b) / 2;
    }
    return place;
}

std::vector<PlanSign> gatheredSigns(const std::vector<std::pair<const Footprint*, Mark>>& marked,
                                    const PlanViewport& viewport) {
    std::map<std::tuple<double, double, Mark>, PlanSign> cells;
    const double side = CellSide / viewport.scale;
    for (const auto& [footprint, mark] : marked) {
        const QPointF place = signPlace(*footprint);
        PlanSign& sign = cells[{std::floor(place.x() / side), std::floor(place.y() / side), mark}];
        sign.mark = mark;
        ++sign.count;
        // The mean of those so far: nothing is summed up that would lose places far from the origin.
        sign.place += (place - sign.place) / sign.count;
    }
    std::vector<PlanSign> signs;
    signs.reserve(cells.size());
    // Those of several marks in one cell stand one below the other.
    std::pair<double, double> last;
    for (const auto& [key, sign] : cells) {
        const std::pair cell(std::get<0>(key), std::get<1>(key));
        const bool below = !signs.empty() && cell == last;
        const QPointF place = below ? signs.back().place - QPointF(0, 2.2 * SignRadius / viewport.scale) : sign.place;
        signs.push_back({sign.mark, place, sign.count});
        last = cell;
    }
    std::stable_sort(signs.begin(), signs.end(), [](const PlanSign& a, const PlanSign& b) { return a.mark < b.mark; });
    return signs;
}

void drawMark(QPainter& painter, const QRectF& square, const QPalette& palette, Mark mark) {
    const double scale = square.width() / 16;
    const QColor color = markColor(palette, mark), paper = palette.color(QPalette::Base);
    const bool hollow = mark == Mark::Open;
    painter.setPen(QPen(hollow ? color : paper, (hollow ? 3 : 1.5) * scale));
    painter.setBrush(hollow ? paper : color);
    painter.drawEllipse(square.center(), (hollow ? 6 : 7.5) * scale, (hollow ? 6 : 7.5) * scale);
    painter.setPen(QPen(paper, 2 * scale, Qt::SolidLine, Qt::RoundCap));
    for (const QLineF& stroke : strokes(mark)) {
        painter.drawLine(square.topLeft() + stroke.p1() * scale, square.topLeft() + stroke.p2() * scale);
    }
}

void drawSign(QPainter& painter, const PlanViewport& viewport, const QPalette& palette, const PlanSign& sign) {
    const QPointF place = viewport.toScreen(sign.place);
    const QRectF square(place.x() - SignRadius, place.y() - SignRadius, 2 * SignRadius, 2 * SignRadius);
    if (sign.count < 2) {
        drawMark(painter, square, palette, sign.mark);
        return;
    }
    const QString count = number(sign.count);
    const double wide = QFontMetricsF(painter.font()).horizontalAdvance(count) + 6;
    const QRectF both(place.x() - SignRadius - wide / 2, place.y() - SignRadius - 1, 2 * SignRadius + wide,
                      2 * SignRadius + 2);
    painter.setPen(QPen(markColor(palette, sign.mark), 1.5));
    painter.setBrush(palette.color(QPalette::Base));
    painter.drawRoundedRect(both, both.height() / 2, both.height() / 2);
    drawMark(painter, square.translated(both.left() - square.left() + 1, 0), palette, sign.mark);
    painter.setPen(palette.color(QPalette::Text));
    painter.drawText(both.adjusted(2 * SignRadius, 0, -3, 0), Qt::AlignCenter, count);
}

}  // namespace desktop
