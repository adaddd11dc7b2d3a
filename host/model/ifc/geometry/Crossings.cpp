#include "model/ifc/geometry/Crossings.hpp"

#include <algorithm>
#include <utility>
#include <vector>

namespace model::ifc {

namespace {

using ClipperLib::cInt;
using ClipperLib::IntPoint;

struct Edge {
    IntPoint a, b;
    cInt low, high;            ///< Along the axis that edges are gone through by.
    cInt otherLow, otherHigh;  ///< Along the other one.
};

/// 1 where a, b, c turn left, -1 where they turn right.
int side(const IntPoint& a, const IntPoint& b, const IntPoint& c) {
    const cInt turn = (b.X - a.X) * (c.Y - a.Y) - (b.Y - a.Y) * (c.X - a.X);
    return static_cast<int>(turn > 0) - static_cast<int>(turn < 0);
}

bool cross(const Edge& one, const Edge& two) {
    return side(one.a, one.b, two.a) * side(one.a, one.b, two.b) < 0 &&
           side(two.a, two.b, one.a) * side(two.a, two.b, one.b) < 0;
}

/// In the order of their beginnings along the axis on which they overlap less.
std::vector<Edge> edgesOf(const ClipperLib::Paths& rings) {
    std::vector<Edge> edges;
    double alongX = 0, alongY = 0;
    for (const ClipperLib::Path& ring : rings) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const IntPoint &a = ring[i], &b = ring[(i + 1) % ring.size()];
            const auto [minX, maxX] = std::minmax(a.X, b.X);
            const auto [minY, maxY] = std::minmax(a.Y, b.Y);
            edges.push_back({a, b, minX, maxX, minY, maxY});
            alongX += static_cast<double>(maxX - minX);
            alongY += static_cast<double>(maxY - minY);
        }
    }
    if (alongY < alongX) {
        for (Edge& edge : edges) {
            std::swap(edge.low, edge.otherLow);
            std::swap(edge.high, edge.otherHigh);
        }
    }
    std::sort(edges.begin(), edges.end(), [](const Edge& one, const Edge& two) { return one.low < two.low; });
    return edges;
}

}  // namespace

bool crossMoreThan(const ClipperLib::Paths& rings, std::size_t most) {
    const std::vector<Edge> edges = edgesOf(rings);
    std::size_t count = 0;
    for (auto one = edges.begin(); one != edges.end(); ++one) {
        for (auto two = one + 1; two != edges.end() && two->low <= one->high; ++two) {
            if (two->otherLow > one->otherHigh || two->otherHigh < one->otherLow || !cross(*one, *two)) continue;
            if (++count > most) return true;
        }
    }
    return false;
}

}  // namespace model::ifc
