#include "model/ifc/geometry/Curves.hpp"

#include "model/step/syntax/Numbers.hpp"
#include "text/Ascii.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace model::ifc {

namespace {

using step::Slot;
using Points = std::vector<Point>;

constexpr double FullTurn = 2 * std::numbers::pi;
/// A curve of more is drawn by fewer than it has, or not at all.
constexpr std::size_t MostPoints = 20'000;

double distance(const Point& a, const Point& b) {
    return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
}

/// An IfcCircle or IfcEllipse.
class Conic {
public:
    static std::optional<Conic> read(GeometryReader& reader, Slot slot) {
        step::Instance instance;
        const bool circle = isOfClass(reader, slot, "IfcCircle");
        if ((!circle && !isOfClass(reader, slot, "IfcEllipse")) || !reader.read(slot, instance)) return std::nullopt;
        const auto frame = readAxisPlacement(reader, targetOf(reader, instance, 0));
        if (!frame) return std::nullopt;
        Conic conic{*frame, numberIn(instance, 1), numberIn(instance, circle ? 1 : 2)};
        const bool sound = conic.x_ > 0 && conic.y_ > 0 && std::isfinite(conic.x_) && std::isfinite(conic.y_);
        return sound ? std::optional(conic) : std::nullopt;
    }

    double angleOf(const Point& point) const {
        const Point local = inverseOf(frame_).toOuter(point);
        return std::atan2(local.y / y_, local.x / x_);
    }

    /// Counter-clockwise, at most one turn.
    Points between(double from, double to) const {
        while (to <= from) to += FullTurn;
        Points points = ellipsePoints(x_, y_, from, to);
        for (Point& point : points) point = frame_.toOuter(point);
        return points;
    }

private:
    Conic(const Frame& frame, double semiX, double semiY) : frame_(frame), x_(semiX), y_(semiY) {}

    Frame frame_;
    double x_, y_;
};

/// Three points on an arc, in plan. Those of a line are given back as they are.
Points arcThrough(const Point& a, const Point& b, const Point& c) {
    const double d = 2 * (a.x * (b.y - c.y) + b.x * (c.y - a.y) + c.x * (a.y - b.y));
    const auto square = [](const Point& p) { return p.x * p.x + p.y * p.y; };
    const Point middle{(square(a) * (b.y - c.y) + square(b) * (c.y - a.y) + square(c) * (a.y - b.y)) / d,
                       (square(a) * (c.x - b.x) + square(b) * (a.x - c.x) + square(c) * (b.x - a.x)) / d, a.z};
    const double radius = distance(middle, a);
    if (!std::isfinite(radius) || radius > 1e6 * distance(a, c)) return {a, b, c};
    const auto angle = [&](const Point& p) { return std::atan2(p.y - middle.y, p.x - middle.x); };
    const double from = angle(a);
    const auto ahead = [&](double to) { return to < from ? to + FullTurn : to; };
    const double through = ahead(angle(b)), to = ahead(angle(c));
    Points points = ellipsePoints(radius, radius, from, through <= to ? to : to - FullTurn);
    for (Point& point : points) point = {point.x + middle.x, point.y + middle.y, a.z};
    return points;
}

void append(Points& points, const Points& more) {
    for (const Point& point : more) {
        if (points.empty() || distance(points.back(), point) > 0) points.push_back(point);
    }
}

class CurveReader {
public:
    explicit CurveReader(GeometryReader& reader) : reader_(reader) {}

    std::optional<Points> read(Slot curve) {
        constexpr int Deepest = 16;
        step::Instance instance;
        if (depth_ == Deepest || curve == step::NoSlot || !reader_.read(curve, instance)) return std::nullopt;
        ++depth_;
        std::optional<Points> points = readKind(curve, instance);
        --depth_;
        if (points && (points->size() < 2 || points->size() > MostPoints)) return std::nullopt;
        if (points && !reader_.makeCorners(points->size())) return std::nullopt;
        return points;
    }

private:
    std::optional<Points> readKind(Slot curve, const step::Instance& instance) {
        const auto is = [&](std::string_view name) { return isOfClass(reader_, curve, name); };
        if (is("IfcPolyline")) return polyline(instance);
        if (is("IfcIndexedPolyCurve")) return indexed(instance);
        if (is("IfcTrimmedCurve")) return trimmed(instance);
        if (is("IfcCompositeCurve")) return composite(instance);
        if (const auto conic = Conic::read(reader_, curve)) return conic->between(0, FullTurn);
        return std::nullopt;
    }

    std::optional<Points> polyline(const step::Instance& instance) {
        Points points;
        for (const Slot slot : targetsOf(reader_, instance, 0)) {
            const auto point = readPoint(reader_, slot);
            if (!point) return std::nullopt;
            append(points, {*point});
        }
        return points;
    }

    std::optional<Points> indexed(const step::Instance& instance) {
        const Points corners = readPointList(reader_, targetOf(reader_, instance, 0));
        std::vector<step::Value> segments, numbers;
        if (instance.arguments.size() < 2 || !step::splitAggregate(instance.arguments[1], segments)) return corners;
        Points points;
        for (const step::Value& segment : segments) {
            std::string_view keyword;
            step::Value list;
            if (!step::splitTyped(segment, keyword, list) || !step::splitAggregate(list, numbers)) return std::nullopt;
            Points part;
            for (const step::Value& number : numbers) {
                const double place = step::realValue(number).value_or(0);
                if (!(place >= 1 && place <= static_cast<double>(corners.size()))) return std::nullopt;
                part.push_back(corners[static_cast<std::size_t>(place) - 1]);
            }
            const bool arc = text::equalIgnoringCase(keyword, "IFCARCINDEX") && part.size() == 3;
            append(points, arc ? arcThrough(part[0], part[1], part[2]) : part);
            if (points.size() > MostPoints) return std::nullopt;
        }
        return points;
    }

    /// By points where they are given, and by angles otherwise.
    std::optional<Points> trimmed(const step::Instance& instance) {
        std::array<std::optional<double>, 2> parameters;
        std::array<std::optional<Point>, 2> ends;
        for (const std::size_t end : {std::size_t{0}, std::size_t{1}}) {
            std::vector<step::Value> trims;
            if (instance.arguments.size() < 5 || !step::splitAggregate(instance.arguments[1 + end], trims)) continue;
            for (const step::Value& trim : trims) {
                std::string_view keyword;
                step::Value inner;
                if (step::splitTyped(trim, keyword, inner)) parameters[end] = step::realValue(inner);
                if (const auto point = readPoint(reader_, reader_.find(step::referenceId(trim)))) ends[end] = point;
            }
        }
        const Slot basis = targetOf(reader_, instance, 0);
        const bool forwards = step::enumerationItem(instance.arguments[3]) != "F";
        if (ends[0] && ends[1]) return curvePart(reader_, basis, *ends[0], *ends[1], forwards);
        const auto conic = Conic::read(reader_, basis);
        if (!conic || !parameters[0] || !parameters[1]) return line(basis, parameters);
        const auto [from, to] = trimmedAngles(*parameters[0], *parameters[1], forwards);
        if (!std::isfinite(from) || !std::isfinite(to) || std::abs(from) > 100 || std::abs(to) > 100) {
            return std::nullopt;
        }
        Points points = conic->between(from, to);
        if (!forwards) std::reverse(points.begin(), points.end());
        return points;
    }

    /// An IfcLine between two parameters, which count by the length of its vector.
    std::optional<Points> line(Slot basis, const std::array<std::optional<double>, 2>& parameters) {
        step::Instance instance, vector;
        if (!isOfClass(reader_, basis, "IfcLine") || !parameters[0] || !parameters[1] ||
            !reader_.read(basis, instance)) {
            return std::nullopt;
        }
        const auto origin = readPoint(reader_, targetOf(reader_, instance, 0));
        const Slot along = targetOf(reader_, instance, 1);
        if (!origin || !isOfClass(reader_, along, "IfcVector") || !reader_.read(along, vector)) return std::nullopt;
        const auto direction = readDirection(reader_, targetOf(reader_, vector, 0));
        if (!direction) return std::nullopt;
        Points points;
        for (const auto& parameter : parameters) {
            const double length = *parameter * numberIn(vector, 1);
            points.push_back({origin->x + direction->x * length, origin->y + direction->y * length,
                              origin->z + direction->z * length});
        }
        return points;
    }

    std::optional<Points> composite(const step::Instance& instance) {
        Points points;
        for (const Slot slot : targetsOf(reader_, instance, 0)) {
            step::Instance segment;
            if (!isOfClass(reader_, slot, "IfcCompositeCurveSegment") || !reader_.read(slot, segment)) {
                return std::nullopt;
            }
            auto part = read(targetOf(reader_, segment, 2));
            if (!part || segment.arguments.size() < 2) return std::nullopt;
            if (step::enumerationItem(segment.arguments[1]) == "F") std::reverse(part->begin(), part->end());
            append(points, *part);
            if (points.size() > MostPoints) return std::nullopt;
        }
        return points;
    }

    GeometryReader& reader_;
    int depth_ = 0;
};

}  // namespace

Angles trimmedAngles(double first, double second, bool forwards) {
    const bool degrees = std::max(std::abs(first), std::abs(second)) > FullTurn + 1e-6;
    const double unit = degrees ? FullTurn / 360 : 1;
    Angles angles{(forwards ? first : second) * unit, (forwards ? second : first) * unit};
    if (angles.to < angles.from) angles.to += FullTurn;
    return angles;
}

std::vector<Point> ellipsePoints(double semiX, double semiY, double from, double to) {
    constexpr double Step = FullTurn / 48;  // The area between chord and arc is a third of a hundredth of the circle's.
    const int steps = static_cast<int>(std::fmin(std::fmax(std::ceil(std::abs(to - from) / Step), 1), 96));
    std::vector<Point> points;
    for (int i = 0; i <= steps; ++i) {
        const double angle = from + (to - from) * i / steps;
        points.push_back({semiX * std::cos(angle), semiY * std::sin(angle), 0});
    }
    return points;
}

std::optional<std::vector<Point>> curvePoints(GeometryReader& reader, Slot curve) {
    return CurveReader(reader).read(curve);
}

std::optional<std::vector<Point>> curvePart(GeometryReader& reader, Slot curve, const Point& from, const Point& to,
                                            bool forwards) {
    if (isOfClass(reader, curve, "IfcLine")) return Points{from, to};
    const auto conic = Conic::read(reader, curve);
    if (!conic) return std::nullopt;
    const double begin = conic->angleOf(forwards ? from : to), end = conic->angleOf(forwards ? to : from);
    Points points = conic->between(begin, end);
    if (!forwards) std::reverse(points.begin(), points.end());
    return points;
}

std::vector<Point> readPointList(GeometryReader& reader, Slot list) {
    Points points;
    step::Instance instance;
    std::vector<step::Value> rows, numbers;
    if (!isOfClass(reader, list, "IfcCartesianPointList") || !reader.read(list, instance)) return points;
    if (instance.arguments.empty() || !step::splitAggregate(instance.arguments[0], rows)) return points;
    points.reserve(rows.size());
    for (const step::Value& row : rows) {
        if (!step::splitAggregate(row, numbers)) return {};
        const auto at = [&](std::size_t i) {
            return i < numbers.size() ? step::realValue(numbers[i]).value_or(0) : 0.0;
        };
        points.push_back({at(0), at(1), at(2)});
    }
    return points;
}

double numberIn(const step::Instance& instance, std::size_t attributeIndex) {
    return attributeIndex < instance.arguments.size() ? step::realValue(instance.arguments[attributeIndex]).value_or(0)
                                                      : 0;
}

std::vector<Slot> targetsOf(GeometryReader& reader, const step::Instance& instance, std::size_t attributeIndex) {
    std::vector<Slot> slots;
    std::vector<step::Value> values;
    if (attributeIndex >= instance.arguments.size() ||
        !step::splitAggregate(instance.arguments[attributeIndex], values)) {
        return slots;
    }
    slots.reserve(values.size());
    for (const step::Value& value : values) slots.push_back(reader.find(step::referenceId(value)));
    return slots;
}

}  // namespace model::ifc
