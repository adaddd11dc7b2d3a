#include "model/ifc/geometry/ConvexHull.hpp"

#include <algorithm>
#include <tuple>

namespace model::ifc {

namespace {

/// Above zero where a, b, c turn left.
double turn(const Point& a, const Point& b, const Point& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

/// One side of the hull (Andrew's monotone chain) over points in order, laid on top of `hull`.
template <class Iterator>
void addChain(Iterator begin, Iterator end, std::vector<Point>& hull) {
    const std::size_t base = hull.size();
    for (auto point = begin; point != end; ++point) {
        while (hull.size() >= base + 2 && turn(hull[hull.size() - 2], hull.back(), *point) <= 0) hull.pop_back();
        hull.push_back(*point);
    }
    hull.pop_back();  // The other chain begins with it.
}

}  // namespace

std::vector<Point> convexHull(std::vector<Point> points) {
    if (points.empty()) return {};
    const auto lowest =
        std::min_element(points.begin(), points.end(), [](const Point& a, const Point& b) { return a.z < b.z; });
    const double z = lowest->z;
    for (Point& point : points) point.z = z;
    const auto place = [](const Point& point) { return std::tie(point.x, point.y); };
    std::sort(points.begin(), points.end(), [&](const Point& a, const Point& b) { return place(a) < place(b); });
    points.erase(
        std::unique(points.begin(), points.end(), [&](const Point& a, const Point& b) { return place(a) == place(b); }),
        points.end());
    if (points.size() < 3) return points;
    std::vector<Point> hull;
    addChain(points.begin(), points.end(), hull);
    addChain(points.rbegin(), points.rend(), hull);
    return hull;
}

}  // namespace model::ifc
