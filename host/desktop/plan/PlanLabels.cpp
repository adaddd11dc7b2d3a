#include "desktop/plan/PlanLabels.hpp"

#include "desktop/QtText.hpp"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>
#include <vector>

namespace desktop {

namespace {

/// A name is written on one line.
constexpr qsizetype LongestText = 80;

QString oneLine(std::u16string_view text) {
    return visible(toQString(text.substr(0, LongestText)).simplified());
}

/// The widest part of a line through the rings that lies inside of them.
struct Span {
    double from = 0, to = 0;
    double length() const { return to - from; }
    double middle() const { return (from + to) / 2; }
};

/// @param x, y  The coordinates along the line and across it.
template <class X, class Y>
Span widestSpan(const QList<QPolygonF>& rings, double at, X x, Y y) {
    std::vector<double> crossings;
    for (const QPolygonF& ring : rings) {
        for (qsizetype i = 0; i < ring.size(); ++i) {
            const QPointF &a = ring[i], &b = ring[(i + 1) % ring.size()];
            if ((y(a) <= at) == (y(b) <= at)) continue;
            crossings.push_back(x(a) + (at - y(a)) / (y(b) - y(a)) * (x(b) - x(a)));
        }
    }
    std::sort(crossings.begin(), crossings.end());
    Span widest;
    for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
        const Span span{crossings[i], crossings[i + 1]};
        if (span.length() > widest.length()) widest = span;
    }
    return widest;
}

double across(const QPointF& point) {
    return point.x();
}

double upwards(const QPointF& point) {
    return point.y();
}

}  // namespace

void setRoomTexts(PlanLabel& label, const model::RoomFacts& facts, std::optional<double> outlineArea) {
    label.number = oneLine(facts.number);
    label.name = oneLine(facts.name);
    label.area.clear();
    const std::optional<double> area = facts.area ? facts.area : outlineArea;
    if (!area || !(*area > 0) || *area > 1e9) return;
    label.area =
        QCoreApplication::translate("desktop::PlanView", "%1 m²").arg(QLocale::system().toString(*area, 'f', 1));
}

void placeLabel(PlanLabel& label, const QList<QPolygonF>& rings) {
    QPolygonF all;
    for (const QPolygonF& ring : rings) all << ring;
    const QRectF box = all.boundingRect();
    label.middle = box.center();
    label.room = {};
    double best = 0;
    // The middle first: a label there looks best wherever it has room.
    for (const double part : {0.5, 0.4, 0.6, 0.25, 0.75, 0.12, 0.88}) {
        const double y = box.top() + part * box.height();
        const Span wide = widestSpan(rings, y, across, upwards);
        const Span high = widestSpan(rings, wide.middle(), upwards, across);
        // The other span may be of another part of the room; around this place there is at most that.
        const double above = std::max(std::min(high.to - y, y - high.from), 0.0) * 2;
        const double fits = std::min(wide.length(), 3 * above);
        if (fits <= best * 1.2) continue;
        best = fits;
        label.middle = {wide.middle(), y};
        label.room = {wide.length(), above};
    }
}

}  // namespace desktop
