#include "model/ifc/geometry/Outlines.hpp"

#include "model/ifc/geometry/Footprint.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace model::ifc {

namespace {

using step::Slot;

constexpr std::size_t EntryCost = 16;  ///< In corners.

bool isFinite(const Point& point) {
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

/// Empty where its coordinates are no numbers.
PlanOutline placed(std::vector<Ring> rings, const Point& origin, bool hull) {
    for (Ring& ring : rings) {
        for (Point& point : ring) {
            point = {point.x + origin.x, point.y + origin.y, hull ? point.z + origin.z : 0};
            if (!isFinite(point)) return {};
        }
    }
    return {std::move(rings), hull};
}

}  // namespace

PlanOutline Outlines::of(Slot element) {
    // Of a wall as high as a storey, somewhat below the middle: above the sills, below the lintels.
    constexpr double CutAt = 0.42;
    GeometryReader reader(work_);
    auto geometry = geometryOf(reader, element);
    if (!geometry) return {};
    const Point origin = std::exchange(geometry->frame.origin, {});
    const Frame& frame = geometry->frame;
    if (!isFinite(frame.x) || !isFinite(frame.y) || !isFinite(frame.z)) return {};
    Covered& shown = covered(*geometry);
    if (shown.area) {
        const double height = shown.bottom + CutAt * (shown.top - shown.bottom);
        auto rings = shown.area->without(openingsAt(element, origin, height));
        if (rings && !rings->empty()) return placed(std::move(*rings), origin, false);
    }
    const std::vector<Point>& corners = hull(*geometry, shown);
    if (corners.empty()) return {};
    return placed({corners}, origin, true);
}

Outlines::Covered& Outlines::covered(const ElementGeometry& geometry) {
    const bool changed = std::exchange(revision_, work_.file.revision()) != work_.file.revision();
    if (changed || kept_ > MostKept) {
        covered_.clear();
        kept_ = 0;
    }
    const Frame& frame = geometry.frame;
    const Axes axes{frame.x.x, frame.x.y, frame.x.z, frame.y.x, frame.y.y, frame.y.z, frame.z.x, frame.z.y, frame.z.z};
    const std::pair key(geometry.source, axes);
    if (const auto known = covered_.find(key); known != covered_.end()) return known->second;
    Covered made;
    GeometryReader reader(work_);
    if (const auto shape = planShapeOf(reader, geometry)) {
        made.area = PlanArea::of(shape->regions);
        made.bottom = shape->bottom;
        made.top = shape->top;
    }
    kept_ += EntryCost + (made.area ? made.area->corners() : 0);
    return covered_.emplace(key, std::move(made)).first->second;
}

const std::vector<Point>& Outlines::hull(const ElementGeometry& geometry, Covered& covered) {
    if (!covered.hull) {
        GeometryReader reader(work_);
        covered.hull = planHullOf(reader, geometry);
        kept_ += covered.hull->size();
    }
    return *covered.hull;
}

/// What is cut away from an element at the height where a plan is cut: as high as people look, in a storey's wall. Of a
/// door or window there is a part at that height, of the recess for a pipe along the floor none.
/// @param origin  Of the coordinates that the height and the result are in.
std::vector<Region> Outlines::openingsAt(Slot element, const Point& origin, double height) {
    constexpr std::size_t MostOpenings = 1000;
    const std::vector<Slot> openings = openings_.of(element);
    GeometryReader reader(work_);
    std::vector<Region> regions;
    for (std::size_t i = 0; i < std::min(openings.size(), MostOpenings); ++i) {
        auto geometry = geometryOf(reader, openings[i]);
        if (!geometry) continue;
        Point& at = geometry->frame.origin;
        at = {at.x - origin.x, at.y - origin.y, at.z - origin.z};
        auto shape = planShapeOf(reader, *geometry);
        if (!shape || shape->bottom > height || shape->top < height) continue;
        std::move(shape->regions.begin(), shape->regions.end(), std::back_inserter(regions));
    }
    return regions;
}

}  // namespace model::ifc
