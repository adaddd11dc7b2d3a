#include "model/ifc/geometry/Placement.hpp"

#include "model/ifc/geometry/AlongCurve.hpp"
#include "model/step/syntax/Numbers.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace model::ifc {

namespace {

using step::Slot;

Point scaled(const Point& p, double factor) {
    return {p.x * factor, p.y * factor, p.z * factor};
}

Point sum(const Point& a, const Point& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

Point cross(const Point& a, const Point& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double dot(const Point& a, const Point& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

std::optional<Point> unit(const Point& p) {
    const double length = std::sqrt(dot(p, p));
    if (!(length > 1e-12) || !std::isfinite(length)) return std::nullopt;
    return scaled(p, 1 / length);
}

/// The part of `p` at a right angle to `axis`.
Point rejected(const Point& p, const Point& axis) {
    return sum(p, scaled(axis, -dot(p, axis)));
}

/// Two or three numbers of an instance's first argument.
std::optional<Point> readTriple(GeometryReader& reader, Slot slot) {
    step::Instance instance;
    std::vector<step::Value> numbers;
    if (slot == step::NoSlot || !reader.read(slot, instance) || instance.arguments.empty()) return std::nullopt;
    if (!step::splitAggregate(instance.arguments[0], numbers) || numbers.empty() || numbers.size() > 3) {
        return std::nullopt;
    }
    std::array<double, 3> values{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto number = step::realValue(numbers[i]);
        if (!number) return std::nullopt;
        values[i] = *number;
    }
    return Point{values[0], values[1], values[2]};
}

/// Where an IfcLinearPlacement puts things. Files give the same place in ordinary coordinates, too, for programs that
/// follow no curves; else it is as far along the curve as its point says. Axes of its own beside those of the curve are
/// not read.
std::optional<Frame> linearFrame(GeometryReader& reader, const step::Instance& placement) {
    if (auto given = readAxisPlacement(reader, targetOf(reader, placement, 2))) return given;
    step::Instance axes, point;
    const Slot relative = targetOf(reader, placement, 1);
    if (!isOfClass(reader, relative, "IfcAxis2PlacementLinear") || !reader.read(relative, axes) ||
        axes.arguments.empty()) {
        return std::nullopt;
    }
    const Slot location = targetOf(reader, axes, 0);
    const bool turned = std::any_of(axes.arguments.begin() + 1, axes.arguments.end(),
                                    [](const step::Value& axis) { return axis.kind != step::ValueKind::Unset; });
    if (turned || !isOfClass(reader, location, "IfcPointByDistanceExpression") || !reader.read(location, point))
        return std::nullopt;
    const auto distance = lengthIn(point, 0);
    if (!distance || point.arguments.size() < 5) return std::nullopt;
    auto frame = frameAlong(reader.work(), targetOf(reader, point, 4), *distance);
    if (!frame) return std::nullopt;
    const auto offset = [&](std::size_t index) { return step::realValue(point.arguments[index]).value_or(0); };
    frame->origin = frame->toOuter(Point{offset(3), offset(1), offset(2)});
    return frame;
}

}  // namespace

bool isOfClass(GeometryReader& reader, Slot slot, std::string_view name) {
    if (slot == step::NoSlot) return false;
    const Entity* entity = reader.classOf(slot).entity;
    return entity != nullptr && entity->isA(name);
}

Slot targetOf(GeometryReader& reader, const step::Instance& instance, std::size_t attributeIndex) {
    if (attributeIndex >= instance.arguments.size()) return step::NoSlot;
    return reader.find(step::referenceId(instance.arguments[attributeIndex]));
}

step::Value argumentNamed(GeometryReader& reader, Slot slot, const step::Instance& instance, std::string_view name) {
    const Entity* entity = slot == step::NoSlot ? nullptr : reader.classOf(slot).entity;
    const int index = entity == nullptr ? -1 : entity->attributeIndex(name);
    const bool given = index >= 0 && static_cast<std::size_t>(index) < instance.arguments.size();
    return given ? instance.arguments[static_cast<std::size_t>(index)] : step::Value{step::ValueKind::Unset, {}};
}

Point Frame::turned(const Point& local) const {
    return sum(scaled(x, local.x), sum(scaled(y, local.y), scaled(z, local.z)));
}

Point Frame::toOuter(const Point& local) const {
    return sum(origin, turned(local));
}

Frame Frame::toOuter(const Frame& inner) const {
    return {turned(inner.x), turned(inner.y), turned(inner.z), toOuter(inner.origin)};
}

std::optional<Point> readPoint(GeometryReader& reader, Slot slot) {
    return isOfClass(reader, slot, "IfcCartesianPoint") ? readTriple(reader, slot) : std::nullopt;
}

std::optional<Point> readDirection(GeometryReader& reader, Slot slot) {
    const auto ratios = isOfClass(reader, slot, "IfcDirection") ? readTriple(reader, slot) : std::nullopt;
    return ratios ? unit(*ratios) : std::nullopt;
}

std::optional<Frame> readAxisPlacement(GeometryReader& reader, Slot slot) {
    const bool spatial = isOfClass(reader, slot, "IfcAxis2Placement3D");
    if (!spatial && !isOfClass(reader, slot, "IfcAxis2Placement2D")) return std::nullopt;
    step::Instance instance;
    if (!reader.read(slot, instance)) return std::nullopt;
    const auto location = readPoint(reader, targetOf(reader, instance, 0));
    if (!location) return std::nullopt;
    Frame frame;
    frame.origin = *location;
    if (spatial) frame.z = readDirection(reader, targetOf(reader, instance, 1)).value_or(frame.z);
    const auto reference = readDirection(reader, targetOf(reader, instance, spatial ? 2 : 1)).value_or(Point{1, 0, 0});
    // Without a usable reference direction the standard takes the x axis, and the z axis where x lies along the axis.
    auto x = unit(rejected(reference, frame.z));
    if (!x) x = unit(rejected({1, 0, 0}, frame.z));
    frame.x = x ? *x : *unit(rejected({0, 0, 1}, frame.z));
    frame.y = cross(frame.z, frame.x);
    if (reader.spent()) return std::nullopt;  // Directions that were not read would stand for themselves.
    return frame;
}

Frame inverseOf(const Frame& frame) {
    Frame inverse;
    inverse.x = {frame.x.x, frame.y.x, frame.z.x};
    inverse.y = {frame.x.y, frame.y.y, frame.z.y};
    inverse.z = {frame.x.z, frame.y.z, frame.z.z};
    inverse.origin = scaled(inverse.turned(frame.origin), -1);
    return inverse;
}

std::optional<Frame> readTransformation(GeometryReader& reader, Slot slot) {
    const bool spatial = isOfClass(reader, slot, "IfcCartesianTransformationOperator3D");
    if (!spatial && !isOfClass(reader, slot, "IfcCartesianTransformationOperator2D")) return std::nullopt;
    step::Instance instance;
    if (!reader.read(slot, instance)) return std::nullopt;
    const auto origin = readPoint(reader, targetOf(reader, instance, 2));
    if (!origin) return std::nullopt;
    const auto scale = [&](std::size_t attributeIndex, double otherwise) {
        if (attributeIndex >= instance.arguments.size()) return otherwise;
        return step::realValue(instance.arguments[attributeIndex]).value_or(otherwise);
    };
    Frame frame;
    if (spatial) frame.z = readDirection(reader, targetOf(reader, instance, 4)).value_or(frame.z);
    const auto axis1 = readDirection(reader, targetOf(reader, instance, 0)).value_or(Point{1, 0, 0});
    frame.x = unit(rejected(axis1, frame.z)).value_or(frame.x);
    frame.y = cross(frame.z, frame.x);
    // The second axis may point the other way: then the copy is mirrored.
    const auto axis2 = readDirection(reader, targetOf(reader, instance, 1));
    if (axis2 && dot(*axis2, frame.y) < 0) frame.y = scaled(frame.y, -1);
    const double first = scale(3, 1), second = scale(spatial ? 5 : 4, first), third = spatial ? scale(6, first) : 1;
    return Frame{scaled(frame.x, first), scaled(frame.y, second), scaled(frame.z, third), *origin};
}

std::optional<Frame> placementOf(GeometryReader& reader, Slot element) {
    step::Instance instance;
    if (!reader.read(element, instance)) return std::nullopt;
    Slot placement =
        reader.find(step::referenceId(argument(instance, reader.classOf(element), Field::ObjectPlacement)));
    if (placement == step::NoSlot) return std::nullopt;
    // A chain longer than any building is a circle.
    constexpr int Longest = 256;
    Frame frame;
    for (int i = 0; i < Longest; ++i) {
        const bool linear = isOfClass(reader, placement, "IfcLinearPlacement");
        if ((!linear && !isOfClass(reader, placement, "IfcLocalPlacement")) || !reader.read(placement, instance))
            return std::nullopt;
        const auto outer =
            linear ? linearFrame(reader, instance) : readAxisPlacement(reader, targetOf(reader, instance, 1));
        if (!outer) return std::nullopt;
        frame = outer->toOuter(frame);
        const bool relative = !instance.arguments.empty() && instance.arguments[0].kind != step::ValueKind::Unset;
        if (!relative) return frame;
        placement = targetOf(reader, instance, 0);
    }
    return std::nullopt;
}

std::optional<Frame> placementOf(Workspace& work, Slot element) {
    GeometryReader reader(work);
    return placementOf(reader, element);
}

}  // namespace model::ifc
