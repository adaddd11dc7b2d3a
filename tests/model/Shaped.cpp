#include "Shaped.hpp"

#include <cmath>
#include <numbers>

using model::Point;

double areaOf(const model::PlanOutline& outline) {
    double area = 0;
    for (const auto& ring : outline.rings) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            // From one corner on: far from the origin the products would lose what the area is about.
            const Point &o = ring[0], &a = ring[i], &b = ring[(i + 1) % ring.size()];
            area += ((a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x)) / 2;
        }
    }
    return area;
}

Id faces(TinyModel& ifc, const std::vector<Corners>& rings) {
    std::string points, indexes;
    std::size_t count = 0;
    for (const Corners& ring : rings) {
        indexes += indexes.empty() ? "((" : "),(";
        for (std::size_t i = 0; i < ring.size(); ++i) {
            points += (count == 0 ? "(" : ",(") + std::to_string(ring[i].x) + "," + std::to_string(ring[i].y) + "," +
                      std::to_string(ring[i].z) + ")";
            indexes += (i == 0 ? "" : ",") + std::to_string(++count);
        }
    }
    const Id list = ifc.add("IfcCartesianPointList3D", {{"CoordList", "(" + points + ")"}});
    return ifc.add("IfcTriangulatedFaceSet", {{"Coordinates", ref(list)}, {"CoordIndex", indexes + "))"}});
}

Id triangles(TinyModel& ifc, const Corners& corners) {
    std::vector<Corners> rings;
    for (std::size_t i = 0; i + 2 < corners.size(); i += 3)
        rings.push_back({corners[i], corners[i + 1], corners[i + 2]});
    return faces(ifc, rings);
}

Corners star(std::size_t corners, std::size_t step, double radius) {
    Corners ring;
    for (std::size_t i = 0; i < corners; ++i) {
        const double angle =
            2 * std::numbers::pi * static_cast<double>(i * step % corners) / static_cast<double>(corners);
        ring.push_back({radius * std::cos(angle), radius * std::sin(angle), 0});
    }
    return ring;
}
