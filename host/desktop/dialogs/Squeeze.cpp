#include "desktop/dialogs/Squeeze.hpp"

#include <algorithm>
#include <numeric>

namespace desktop {

namespace {

/// A header, a few rows, and a scroll bar below them.
constexpr int LeastHeight = 106;
constexpr int LeastWidth = 120;
constexpr int LeastGap = 4;

using Line = std::vector<std::size_t>;

int leastWidth(const SqueezedItem& item) {
    return item.gives ? std::min(LeastWidth, item.place.width()) : item.place.width();
}

/// The item that gives way upwards: the highest of those that can. Past the end where there is none.
std::size_t highest(const std::vector<SqueezedItem>& items) {
    std::size_t found = items.size();
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (!items[i].gives) continue;
        if (found == items.size() || items[i].place.height() > items[found].place.height()) found = i;
    }
    return found;
}

/// How much an item and the gaps around it can give upwards, in the order in which they do.
struct Heights {
    int item = 0, bottom = 0, below = 0, above = 0;
    int all() const { return item + bottom + below + above; }
};

Heights givenHeights(const std::vector<SqueezedItem>& items, int height) {
    const std::size_t giving = highest(items);
    if (giving == items.size()) return {};
    const QRect& place = items[giving].place;
    int lowest = 0, next = height, first = place.top();
    for (const SqueezedItem& item : items) {
        lowest = std::max(lowest, item.place.bottom() + 1);
        first = std::min(first, item.place.top());
        if (item.place.top() > place.bottom()) next = std::min(next, item.place.top());
    }
    const auto spare = [](int gap) { return std::max(gap - LeastGap, 0); };
    return {std::max(place.height() - LeastHeight, 0), spare(height - lowest),
            next == height ? 0 : spare(next - place.bottom() - 1), first == place.top() ? spare(first) : 0};
}

void squeezeHeights(const std::vector<SqueezedItem>& items, int height, int missing, std::vector<QRect>& places) {
    const Heights can = givenHeights(items, height);
    const auto take = [&missing](int most) {
        const int taken = std::clamp(missing, 0, most);
        missing -= taken;
        return taken;
    };
    const int item = take(can.item);
    take(can.bottom);
    const int below = take(can.below), above = take(can.above);
    const std::size_t giving = highest(items);
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i == giving) {
            places[i].setTop(places[i].top() - above);
            places[i].setHeight(items[i].place.height() - item);
        } else if (giving < items.size() && items[i].place.top() > items[giving].place.bottom()) {
            places[i].translate(0, -(item + below + above));
        }
    }
}

/// The items in lines from the top, each from the left: those of a line lie beside one another, at least in part.
std::vector<Line> linesOf(const std::vector<SqueezedItem>& items) {
    Line order(items.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto place = [&](std::size_t i) -> const QRect& { return items[i].place; };
    std::stable_sort(order.begin(), order.end(), [&](auto a, auto b) { return place(a).top() < place(b).top(); });
    std::vector<Line> lines;
    int bottom = 0;
    for (const std::size_t i : order) {
        if (lines.empty() || place(i).top() > bottom) lines.emplace_back();
        bottom = lines.back().empty() ? place(i).bottom() : std::max(bottom, place(i).bottom());
        lines.back().push_back(i);
    }
    for (Line& line : lines)
        std::stable_sort(line.begin(), line.end(), [&](auto a, auto b) { return place(a).left() < place(b).left(); });
    return lines;
}

/// Takes `missing` from the widths that can give, the widest first, then from the gaps in proportion.
void squeezeLine(const std::vector<SqueezedItem>& items, const Line& line, int width, int missing,
                 std::vector<QRect>& places) {
    std::vector<int> widths, gaps;
    int end = 0;
    for (const std::size_t i : line) {
        widths.push_back(items[i].place.width());
        gaps.push_back(std::max(items[i].place.left() - end, 0));
        end = items[i].place.left() + items[i].place.width();
    }
    Line widestFirst(line.size());
    std::iota(widestFirst.begin(), widestFirst.end(), std::size_t{0});
    std::stable_sort(widestFirst.begin(), widestFirst.end(), [&](auto a, auto b) { return widths[a] > widths[b]; });
    for (const std::size_t i : widestFirst) {
        const int given = std::clamp(widths[i] - leastWidth(items[line[i]]), 0, missing);
        widths[i] -= given;
        missing -= given;
    }
    const int room = std::accumulate(gaps.begin(), gaps.end(), std::max(width - end, 0));
    const int left = std::max(room - missing, 0);
    int at = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        at += room > 0 ? gaps[i] * left / room : 0;
        places[line[i]].moveLeft(at);
        places[line[i]].setWidth(widths[i]);
        at += widths[i];
    }
}

}  // namespace

std::vector<QRect> squeezed(const std::vector<SqueezedItem>& items, QSize dialog, QSize place) {
    std::vector<QRect> places;
    for (const SqueezedItem& item : items) places.push_back(item.place);
    squeezeHeights(items, dialog.height(), dialog.height() - place.height(), places);
    const int missing = dialog.width() - place.width();
    if (missing <= 0) return places;
    for (const Line& line : linesOf(items)) squeezeLine(items, line, dialog.width(), missing, places);
    return places;
}

QSize leastPlace(const std::vector<SqueezedItem>& items, QSize dialog) {
    int width = 0;
    for (const Line& line : linesOf(items)) {
        int needed = LeastGap;
        for (const std::size_t i : line) needed += leastWidth(items[i]) + LeastGap;
        width = std::max(width, needed);
    }
    return {std::min(width, dialog.width()), dialog.height() - givenHeights(items, dialog.height()).all()};
}

}  // namespace desktop
