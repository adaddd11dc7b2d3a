#include "model/ifc/geometry/Footprint.hpp"

#include "model/ifc/geometry/ConvexHull.hpp"
#include "model/ifc/geometry/Curves.hpp"
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
    explicit PointCollector(GeometryReader& reader) : reader_(reader) {}

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
    void collectMapped(Slot item, const Frame& frame);
    void collectExtruded(const step::Instance& solid, const Frame& frame);
    void collectBoolean(const step::Instance& result, const Frame& frame);
    void collectTrimmed(const step::Instance& curve, const Frame& frame);
    void collectConic(Slot conic, const Frame& frame, double from, double to);
    void collectList(const step::Instance& list, const Frame& frame);
    void collectBox(const step::Instance& box, const Frame& frame);
    void collectDerived(const step::Instance& profile, const Frame& frame);
    bool isPassedOver(Slot slot) const;

    /// What stands in a frame that could not be read whole any more is somewhere else.
    void add(const Point& point, const Frame& frame) {
        const Point placed = frame.toOuter(point);
        const bool finite = std::isfinite(placed.x) && std::isfinite(placed.y) && std::isfinite(placed.z);
        if (finite && reader_.makeCorners(1)) points.push_back(placed);
    }

    /// A vertex of a solid is shared by its faces. The same instance in another mapped copy lies elsewhere.
    bool isNew(Slot slot) { return visited_.insert(std::uint64_t{scope_} << 32U | slot).second; }
    template <class Body>
    void inNewScope(Body body) {
        const std::uint32_t outer = scope_;
        scope_ = ++scopes_;
        body();
        scope_ = outer;
    }

    GeometryReader& reader_;
    std::unordered_set<std::uint64_t> visited_;
    std::uint32_t scope_ = 0, scopes_ = 0;
    int depth_ = 0;
    std::size_t budget_ = 50'000;  // instances: a plan of a whole model asks for this of every element
};

/// @return whether the instance is of a kind that is not simply its parts.
bool PointCollector::collectSpecial(Slot slot, const Frame& frame) {
    const auto is = [&](std::string_view name) { return isOfClass(reader_, slot, name); };
    if (is("IfcCartesianPoint")) {
        if (const auto point = readPoint(reader_, slot)) add(*point, frame);
        return true;
    }
    if (isPassedOver(slot)) return true;
    if (const auto outline = profilePoints(reader_, slot)) {
        for (const Point& point : *outline) add(point, frame);
        return true;
    }
    step::Instance instance;
    if (!reader_.read(slot, instance)) return true;
    if (is("IfcMappedItem")) {
        collectMapped(slot, frame);
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
        const auto position = readAxisPlacement(reader_, targetOf(reader_, instance, 1)).value_or(Frame{});
        inNewScope([&] { collect(targetOf(reader_, instance, 0), frame.toOuter(position)); });
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
    const auto is = [&](std::string_view name) { return isOfClass(reader_, slot, name); };
    return std::none_of(Geometry.begin(), Geometry.end(), is) || std::any_of(Passed.begin(), Passed.end(), is);
}

void PointCollector::collectBelow(Slot slot, const Frame& frame) {
    std::vector<Slot> parts;
    forEachReference(reader_.text(slot), AllArguments, [&](unsigned, std::string_view token) {
        parts.push_back(reader_.find(tokenId(token)));
        return parts.size() < budget_;
    });
    for (const Slot part : parts) collect(part, frame);
}

void PointCollector::collectMapped(Slot item, const Frame& frame) {
    const auto mapping = mappingOf(reader_, item);
    if (!mapping) return;
    inNewScope([&] { collect(mapping->representation, frame.toOuter(mapping->frame)); });
}

void PointCollector::collectExtruded(const step::Instance& solid, const Frame& frame) {
    const Frame position = readAxisPlacement(reader_, targetOf(reader_, solid, 1)).value_or(Frame{});
    const Point direction = readDirection(reader_, targetOf(reader_, solid, 2)).value_or(Point{0, 0, 1});
    const double height = numberIn(solid, 3);
    Frame top;
    top.origin = {direction.x * height, direction.y * height, direction.z * height};
    const Frame base = frame.toOuter(position);
    for (const Frame& end : {base, base.toOuter(top)}) {
        inNewScope([&] { collect(targetOf(reader_, solid, 0), end); });
    }
}

/// What a difference takes away is no part of it, and no operand of an intersection is smaller than the result.
void PointCollector::collectBoolean(const step::Instance& result, const Frame& frame) {
    collect(targetOf(reader_, result, 1), frame);
    const bool both = !result.arguments.empty() && step::enumerationItem(result.arguments[0]) == "UNION";
    if (both) collect(targetOf(reader_, result, 2), frame);
}

void PointCollector::collectTrimmed(const step::Instance& curve, const Frame& frame) {
    const Slot basis = targetOf(reader_, curve, 0);
    std::array<std::optional<double>, 2> parameters;
    for (const std::size_t end : {std::size_t{0}, std::size_t{1}}) {
        std::vector<step::Value> trims;
        if (curve.arguments.size() < 5 || !step::splitAggregate(curve.arguments[1 + end], trims)) continue;
        for (const step::Value& trim : trims) {
            std::string_view keyword;
            step::Value inner;
            collect(reader_.find(step::referenceId(trim)), frame);
            if (step::splitTyped(trim, keyword, inner)) parameters[end] = step::realValue(inner);
        }
    }
    if (!isOfClass(reader_, basis, "IfcConic") || !parameters[0] || !parameters[1]) return;
    const bool forwards = step::enumerationItem(curve.arguments[3]) != "F";
    const auto [from, to] = trimmedAngles(*parameters[0], *parameters[1], forwards);
    collectConic(basis, frame, from, to);
}

void PointCollector::collectConic(Slot conic, const Frame& frame, double from, double to) {
    step::Instance instance;
    if (!reader_.read(conic, instance)) return;
    const Frame placed = frame.toOuter(readAxisPlacement(reader_, targetOf(reader_, instance, 0)).value_or(Frame{}));
    const bool circle = isOfClass(reader_, conic, "IfcCircle");
    for (const Point& point : ellipsePoints(numberIn(instance, 1), numberIn(instance, circle ? 1 : 2), from, to)) {
        add(point, placed);
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
        add({at(0), at(1), at(2)}, frame);
    }
}

void PointCollector::collectBox(const step::Instance& box, const Frame& frame) {
    const auto corner = readPoint(reader_, targetOf(reader_, box, 0));
    if (!corner) return;
    for (unsigned i = 0; i < 8; ++i) {
        add({corner->x + ((i & 1U) != 0 ? numberIn(box, 1) : 0), corner->y + ((i & 2U) != 0 ? numberIn(box, 2) : 0),
             corner->z + ((i & 4U) != 0 ? numberIn(box, 3) : 0)},
            frame);
    }
}

void PointCollector::collectDerived(const step::Instance& profile, const Frame& frame) {
    const Frame operation = readTransformation(reader_, targetOf(reader_, profile, 3)).value_or(Frame{});
    inNewScope([&] { collect(targetOf(reader_, profile, 2), frame.toOuter(operation)); });
}

}  // namespace

std::vector<Point> planHullOf(GeometryReader& reader, const ElementGeometry& geometry) {
    PointCollector collector(reader);
    for (const Slot representation : geometry.representations) collector.collect(representation, geometry.frame);
    return convexHull(std::move(collector.points));
}

std::vector<Point> footprintOf(Workspace& work, Slot element) {
    GeometryReader reader(work);
    const auto geometry = geometryOf(reader, element);
    return geometry ? planHullOf(reader, *geometry) : std::vector<Point>();
}

}  // namespace model::ifc
