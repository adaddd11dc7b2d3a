#include "model/ifc/plan/Outlines.hpp"

#include "model/ifc/geometry/Footprint.hpp"
#include "model/ifc/plan/Fillings.hpp"

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
PlanOutline placed(std::vector<Ring> rings, const Point& origin, const Turn& turn, bool hull) {
    for (Ring& ring : rings) {
        for (Point& point : ring) {
            const Point turned = turn.turned(point);
            point = {turned.x + origin.x, turned.y + origin.y, hull ? turned.z + origin.z : 0};
            if (!isFinite(point)) return {};
        }
    }
    PlanOutline outline;
    outline.rings = std::move(rings);
    outline.hull = hull;
    return outline;
}

}  // namespace

PlanOutline Outlines::of(Slot element) {
    const PlanKind kind = kinds_.of(*work_.classes.of(element).entity);
    PlanOutline outline;
    if (kind == PlanKind::Grid) {
        for (GridAxis& axis : gridAxesOf(work_, element)) outline.lines.push_back(std::move(axis.line));
        return outline;
    }
    if (kind == PlanKind::Annotation) outline.lines = curvesOf(work_, element);
    if (!outline.lines.empty()) return outline;
    outline = areasOf(element, kind);
    if (kind == PlanKind::Door) outline.lines = doorLines(work_, element, outline.rings);
    if (kind == PlanKind::Window) outline.lines = windowLines(work_, element, outline.rings);
    return outline;
}

PlanOutline Outlines::areasOf(Slot element, PlanKind kind) {
    // Of a wall as high as a storey, somewhat below the middle: above the sills, below the lintels.
    constexpr double CutAt = 0.42;
    GeometryReader reader(work_);
    auto geometry = geometryOf(reader, element);
    if (!geometry) return {};
    const Point origin = std::exchange(geometry->frame.origin, {});
    Frame& frame = geometry->frame;
    if (!isFinite(frame.x) || !isFinite(frame.y) || !isFinite(frame.z)) return {};
    forgetWhereDue();
    const Turn turn = turnFor(*geometry);
    if (turn.sine != 0) frame = rounded(turn.turnedBack(frame));
    Covered& shown = covered(*geometry);
    if (shown.area) {
        const double height = shown.bottom + CutAt * (shown.top - shown.bottom);
        auto rings = shown.area->without(openingsAt(element, origin, turn, height));
        if (rings && !rings->empty()) {
            PlanOutline outline = placed(std::move(*rings), origin, turn, false);
            if (kind == PlanKind::Stair) outline.lines = placed(steps(*geometry, shown), origin, turn, false).rings;
            outline.bottom = shown.bottom + origin.z;
            outline.top = shown.top + origin.z;
            return outline;
        }
    }
    const std::vector<Point>& corners = hull(*geometry, shown);
    if (corners.empty()) return {};
    return placed({corners}, origin, turn, true);
}

void Outlines::forgetWhereDue() {
    const bool changed = std::exchange(revision_, work_.file.revision()) != work_.file.revision();
    if (!changed && kept_ <= MostKept) return;
    covered_.clear();
    aslant_.clear();
    kept_ = 0;
}

Turn Outlines::turnFor(const ElementGeometry& geometry) {
    const Turn turn = turnOf(geometry.frame);
    if (turn.sine == 0 || covered_.contains(keyOf(geometry))) return {};
    return aslant_[geometry.source]++ < MostAslant ? Turn() : turn;
}

Outlines::Key Outlines::keyOf(const ElementGeometry& geometry) {
    const Frame& frame = geometry.frame;
    return {geometry.source,
            {frame.x.x, frame.x.y, frame.x.z, frame.y.x, frame.y.y, frame.y.z, frame.z.x, frame.z.y, frame.z.z}};
}

Outlines::Covered& Outlines::covered(const ElementGeometry& geometry) {
    const Key key = keyOf(geometry);
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

const PlanLines& Outlines::steps(const ElementGeometry& geometry, Covered& covered) {
    if (!covered.steps) {
        GeometryReader reader(work_);
        const auto shape = planShapeOf(reader, geometry);
        covered.steps = shape ? stepsOf(*shape) : PlanLines();
        for (const auto& step : *covered.steps) kept_ += step.size();
    }
    return *covered.steps;
}

/// What is cut away from an element at the height where a plan is cut: as high as people look, in a storey's wall. Of a
/// door or window there is a part at that height, of the recess for a pipe along the floor none.
/// @param origin, turn  Of the coordinates that the height and the result are in.
std::vector<Region> Outlines::openingsAt(Slot element, const Point& origin, const Turn& turn, double height) {
    constexpr std::size_t MostOpenings = 1000;
    const std::vector<Slot> openings = openings_.of(element);
    GeometryReader reader(work_);
    std::vector<Region> regions;
    for (std::size_t i = 0; i < std::min(openings.size(), MostOpenings); ++i) {
        auto geometry = geometryOf(reader, openings[i]);
        if (!geometry) continue;
        Point& at = geometry->frame.origin;
        at = {at.x - origin.x, at.y - origin.y, at.z - origin.z};
        geometry->frame = turn.turnedBack(geometry->frame);
        auto shape = planShapeOf(reader, *geometry);
        if (!shape || shape->bottom > height || shape->top < height) continue;
        std::move(shape->regions.begin(), shape->regions.end(), std::back_inserter(regions));
    }
    return regions;
}

}  // namespace model::ifc
