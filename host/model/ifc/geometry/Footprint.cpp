#include "model/ifc/geometry/Footprint.hpp"

#include "model/ifc/geometry/ConvexHull.hpp"
#include "model/ifc/geometry/Curves.hpp"
#include "model/ifc/geometry/PlanShape.hpp"
#include "model/ifc/geometry/Profiles.hpp"
#include "model/ifc/values/InstanceScan.hpp"
#include "model/step/syntax/Numbers.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <unordered_set>

namespace model::ifc {

namespace {

using step::Slot;

/// Walks down from a representation and collects points.
class PointCollector {
public:
    explicit PointCollector(Workspace& workspace) : work_(workspace) {}

    void collect(Slot slot, const Frame& frame) {
        constexpr int Deepest = 64;
        if (slot == step::NoSlot || budget_ == 0 || depth_ == Deepest || !isNew(slot)) return;
        --budget_;
        ++depth_;
        if (!collectSpecial(slot, frame)) collectBelow(slot, frame);
        --depth_;
    }

    std::vector<Point> points;

private:
    bool collectSpecial(Slot slot, const Frame& frame);
    void collectBelow(Slot slot, const Frame& frame);
    void collectMapped(const step::Instance& item, const Frame& frame);
    void collectExtruded(const step::Instance& solid, const Frame& frame);
    void collectBoolean(const step::Instance& result, const Frame& frame);
    void collectTrimmed(const step::Instance& curve, const Frame& frame);
    void collectConic(Slot conic, const Frame& frame, double from, double to);
    void collectList(const step::Instance& list, const Frame& frame);
    void collectBox(const step::Instance& box, const Frame& frame);
    void collectDerived(const step::Instance& profile, const Frame& frame);
    bool isPassedOver(Slot slot) const;

    /// A vertex of a solid is shared by its faces. The same instance in another mapped copy lies elsewhere.
    bool isNew(Slot slot) { return visited_.insert(std::uint64_t{scope_} << 32U | slot).second; }
    template <class Body>
    void inNewScope(Body body) {
        const std::uint32_t outer = scope_;
        scope_ = ++scopes_;
        body();
        scope_ = outer;
    }

    Workspace& work_;
    std::unordered_set<std::uint64_t> visited_;
    std::uint32_t scope_ = 0, scopes_ = 0;
    int depth_ = 0;
    std::size_t budget_ = 50'000;  // instances: a plan of a whole model asks for this of every element
};

/// @return whether the instance is of a kind that is not simply its parts.
bool PointCollector::collectSpecial(Slot slot, const Frame& frame) {
    const auto is = [&](std::string_view name) { return isOfClass(work_, slot, name); };
    if (is("IfcCartesianPoint")) {
        if (const auto point = readPoint(work_, slot)) points.push_back(frame.toOuter(*point));
        return true;
    }
    if (isPassedOver(slot)) return true;
    if (const auto outline = profilePoints(work_, slot)) {
        for (const Point& point : *outline) points.push_back(frame.toOuter(point));
        return true;
    }
    step::Instance instance;
    if (!work_.file.read(slot, instance)) return true;
    if (is("IfcMappedItem")) {
        collectMapped(instance, frame);
    } else if (is("IfcExtrudedAreaSolid")) {
        collectExtruded(instance, frame);
    } else if (is("IfcBooleanResult")) {
        collectBoolean(instance, frame);
    } else if (is("IfcTrimmedCurve")) {
        collectTrimmed(instance, frame);
    } else if (is("IfcConic")) {
        collectConic(slot, frame, 0, 2 * std::numbers::pi);
    } else if (is("IfcCartesianPointList")) {
        collectList(instance, frame);
    } else if (is("IfcBoundingBox")) {
        collectBox(instance, frame);
    } else if (is("IfcDerivedProfileDef")) {
        collectDerived(instance, frame);
    } else if (is("IfcSweptAreaSolid")) {
        const auto position = readAxisPlacement(work_, targetOf(work_, instance, 1)).value_or(Frame{});
        inNewScope([&] { collect(targetOf(work_, instance, 0), frame.toOuter(position)); });
    } else {
        return false;
    }
    return true;
}

/// What holds points that are no geometry (origins, directions), what has no end, and what is no geometry.
bool PointCollector::isPassedOver(Slot slot) const {
    constexpr std::array Geometry = {"IfcRepresentationItem", "IfcRepresentation", "IfcProductRepresentation",
                                     "IfcProfileDef", "IfcRepresentationMap"};
    constexpr std::array Passed = {
        "IfcPlacement",      "IfcDirection", "IfcVector",     "IfcCartesianTransformationOperator",
        "IfcHalfSpaceSolid", "IfcLine",      "IfcStyledItem", "IfcTextLiteral",
        "IfcLightSource"};
    const auto is = [&](std::string_view name) { return isOfClass(work_, slot, name); };
    return std::none_of(Geometry.begin(), Geometry.end(), is) || std::any_of(Passed.begin(), Passed.end(), is);
}

void PointCollector::collectBelow(Slot slot, const Frame& frame) {
    std::vector<Slot> parts;
    forEachReference(work_.file.text(slot), AllArguments, [&](unsigned, std::string_view token) {
        parts.push_back(work_.file.find(tokenId(token)));
        return parts.size() < budget_;
    });
    for (const Slot part : parts) collect(part, frame);
}

void PointCollector::collectMapped(const step::Instance& item, const Frame& frame) {
    step::Instance map;
    const Slot source = targetOf(work_, item, 0);
    if (!isOfClass(work_, source, "IfcRepresentationMap") || !work_.file.read(source, map)) return;
    const Frame origin = readAxisPlacement(work_, targetOf(work_, map, 0)).value_or(Frame{});
    const Frame target = readTransformation(work_, targetOf(work_, item, 1)).value_or(Frame{});
    inNewScope([&] { collect(targetOf(work_, map, 1), frame.toOuter(target.toOuter(inverseOf(origin)))); });
}

void PointCollector::collectExtruded(const step::Instance& solid, const Frame& frame) {
    const Frame position = readAxisPlacement(work_, targetOf(work_, solid, 1)).value_or(Frame{});
    const Point direction = readDirection(work_, targetOf(work_, solid, 2)).value_or(Point{0, 0, 1});
    const double height = numberIn(solid, 3);
    Frame top;
    top.origin = {direction.x * height, direction.y * height, direction.z * height};
    const Frame base = frame.toOuter(position);
    for (const Frame& end : {base, base.toOuter(top)}) {
        inNewScope([&] { collect(targetOf(work_, solid, 0), end); });
    }
}

/// What a difference takes away is no part of it, and no operand of an intersection is smaller than the result.
void PointCollector::collectBoolean(const step::Instance& result, const Frame& frame) {
    collect(targetOf(work_, result, 1), frame);
    const bool both = !result.arguments.empty() && step::enumerationItem(result.arguments[0]) == "UNION";
    if (both) collect(targetOf(work_, result, 2), frame);
}

void PointCollector::collectTrimmed(const step::Instance& curve, const Frame& frame) {
    const Slot basis = targetOf(work_, curve, 0);
    std::array<std::optional<double>, 2> parameters;
    for (const std::size_t end : {std::size_t{0}, std::size_t{1}}) {
        std::vector<step::Value> trims;
        if (curve.arguments.size() < 5 || !step::splitAggregate(curve.arguments[1 + end], trims)) continue;
        for (const step::Value& trim : trims) {
            std::string_view keyword;
            step::Value inner;
            collect(work_.file.find(step::referenceId(trim)), frame);
            if (step::splitTyped(trim, keyword, inner)) parameters[end] = step::realValue(inner);
        }
    }
    if (!isOfClass(work_, basis, "IfcConic") || !parameters[0] || !parameters[1]) return;
    const bool forwards = step::enumerationItem(curve.arguments[3]) != "F";
    const auto [from, to] = trimmedAngles(*parameters[0], *parameters[1], forwards);
    collectConic(basis, frame, from, to);
}

void PointCollector::collectConic(Slot conic, const Frame& frame, double from, double to) {
    step::Instance instance;
    if (!work_.file.read(conic, instance)) return;
    const Frame placed = frame.toOuter(readAxisPlacement(work_, targetOf(work_, instance, 0)).value_or(Frame{}));
    const bool circle = isOfClass(work_, conic, "IfcCircle");
    for (const Point& point : ellipsePoints(numberIn(instance, 1), numberIn(instance, circle ? 1 : 2), from, to)) {
        points.push_back(placed.toOuter(point));
    }
}

void PointCollector::collectList(const step::Instance& list, const Frame& frame) {
    std::vector<step::Value> rows, numbers;
    if (list.arguments.empty() || !step::splitAggregate(list.arguments[0], rows)) return;
    for (const step::Value& row : rows) {
        if (budget_ == 0 || !step::splitAggregate(row, numbers)) return;
        --budget_;
        const auto at = [&](std::size_t i) {
            return i < numbers.size() ? step::realValue(numbers[i]).value_or(0) : 0.0;
        };
        points.push_back(frame.toOuter(Point{at(0), at(1), at(2)}));
    }
}

void PointCollector::collectBox(const step::Instance& box, const Frame& frame) {
    const auto corner = readPoint(work_, targetOf(work_, box, 0));
    if (!corner) return;
    for (unsigned i = 0; i < 8; ++i) {
        points.push_back(frame.toOuter(Point{corner->x + ((i & 1U) != 0 ? numberIn(box, 1) : 0),
                                             corner->y + ((i & 2U) != 0 ? numberIn(box, 2) : 0),
                                             corner->z + ((i & 4U) != 0 ? numberIn(box, 3) : 0)}));
    }
}

void PointCollector::collectDerived(const step::Instance& profile, const Frame& frame) {
    const Frame operation = readTransformation(work_, targetOf(work_, profile, 3)).value_or(Frame{});
    inNewScope([&] { collect(targetOf(work_, profile, 2), frame.toOuter(operation)); });
}

/// What is cut away from an element at the height where a plan is cut: as high as people look, in a storey's wall. Of a
/// door or window there is a part at that height, of the recess for a pipe along the floor none.
std::vector<Region> openingsAt(Workspace& work, const std::vector<Slot>& openings, double height) {
    constexpr std::size_t MostOpenings = 1000;
    std::vector<Region> regions;
    for (std::size_t i = 0; i < std::min(openings.size(), MostOpenings); ++i) {
        auto shape = planShapeOf(work, openings[i]);
        if (!shape || shape->bottom > height || shape->top < height) continue;
        std::move(shape->regions.begin(), shape->regions.end(), std::back_inserter(regions));
    }
    return regions;
}

}  // namespace

std::vector<Point> footprintOf(Workspace& work, Slot element) {
    step::Instance instance;
    if (!work.file.read(element, instance)) return {};
    const Class& cls = work.classes.of(element);
    const bool placed = argument(instance, cls, Field::ObjectPlacement).kind != step::ValueKind::Unset;
    const auto frame = placed ? placementOf(work, element) : std::optional(Frame{});
    if (!frame) return {};
    PointCollector collector(work);
    for (const Slot representation : chosenRepresentations(work, element)) collector.collect(representation, *frame);
    std::erase_if(collector.points, [](const Point& point) {
        return !std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z);
    });
    return convexHull(std::move(collector.points));
}

PlanOutline outlineOf(Workspace& work, Openings& openings, Slot element) {
    // Of a wall as high as a storey, somewhat below the middle: above the sills, below the lintels.
    constexpr double CutAt = 0.42;
    if (const auto shape = planShapeOf(work, element)) {
        const double height = shape->bottom + CutAt * (shape->top - shape->bottom);
        auto rings = planUnion(shape->regions, openingsAt(work, openings.of(element), height));
        if (rings && !rings->empty()) return {std::move(*rings), false};
    }
    std::vector<Point> hull = footprintOf(work, element);
    if (hull.empty()) return {};
    return {{std::move(hull)}, true};
}

}  // namespace model::ifc
