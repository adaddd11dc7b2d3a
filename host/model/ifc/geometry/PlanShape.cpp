#include "model/ifc/geometry/PlanShape.hpp"

#include "model/ifc/geometry/Curves.hpp"
#include "model/ifc/geometry/Profiles.hpp"
#include "model/step/syntax/Numbers.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <numbers>

namespace model::ifc {

namespace {

using step::Slot;

class ShapeReader {
public:
    explicit ShapeReader(GeometryReader& reader) : reader_(reader) {}

    /// @return whether all of the item is of a known kind.
    bool read(Slot slot, const Frame& frame) {
        constexpr int Deepest = 32;
        step::Instance instance;
        if (depth_ == Deepest || budget_ == 0 || slot == step::NoSlot || !reader_.read(slot, instance)) return false;
        --budget_;
        ++depth_;
        const bool known = readKind(slot, instance, frame);
        --depth_;
        return known;
    }

    std::vector<Region> regions;
    double bottom = std::numeric_limits<double>::max(), top = std::numeric_limits<double>::lowest();

private:
    bool readKind(Slot slot, const step::Instance& instance, const Frame& frame);
    bool readAll(const std::vector<Slot>& slots, const Frame& frame) {
        return std::all_of(slots.begin(), slots.end(), [&](Slot slot) { return read(slot, frame); });
    }
    bool mapped(Slot item, const Frame& frame);
    bool boolean(const step::Instance& result, const Frame& frame);
    bool extruded(const step::Instance& solid, const Frame& frame);
    bool revolved(const step::Instance& solid, const Frame& frame);
    bool sweptDisk(const step::Instance& solid, const Frame& frame);
    bool block(const step::Instance& solid, const Frame& frame);
    bool cylinder(const step::Instance& solid, const Frame& frame);
    bool face(const step::Instance& face, const Frame& frame);
    bool triangulated(const step::Instance& faces, const Frame& frame);
    bool polygonal(const step::Instance& faces, const Frame& frame);
    std::optional<Ring> loop(Slot bound, const Frame& frame);
    std::optional<Ring> edgeLoop(const step::Instance& loop, const Frame& frame);
    std::optional<Ring> indexed(const step::Value& numbers, const std::vector<Point>& points, const Frame& frame);
    const std::vector<Point>& pointList(Slot list);
    const std::vector<Point>* pointsOf(const step::Instance& faces, std::size_t pnIndex, std::vector<Point>& picked);

    bool sweep(const std::vector<Region>& profile, const std::vector<Frame>& stations);
    bool add(Region region);

    GeometryReader& reader_;
    std::map<Slot, std::vector<Point>> lists_;
    int depth_ = 0;
    std::size_t budget_ = 50'000;       ///< Instances: a plan of a whole model asks for this of every element.
    std::size_t cornersLeft_ = 60'000;  ///< Of all regions.
};

bool ShapeReader::readKind(Slot slot, const step::Instance& instance, const Frame& frame) {
    const auto is = [&](std::string_view name) { return isOfClass(reader_, slot, name); };
    if (is("IfcMappedItem")) return mapped(slot, frame);
    if (is("IfcBooleanResult")) return boolean(instance, frame);
    if (is("IfcExtrudedAreaSolid")) return extruded(instance, frame);
    if (is("IfcRevolvedAreaSolid")) return revolved(instance, frame);
    if (is("IfcSweptDiskSolid")) return sweptDisk(instance, frame);
    if (is("IfcBlock")) return block(instance, frame);
    if (is("IfcRightCircularCylinder")) return cylinder(instance, frame);
    if (is("IfcFace")) return face(instance, frame);
    if (is("IfcTriangulatedFaceSet")) return triangulated(instance, frame);
    if (is("IfcPolygonalFaceSet")) return polygonal(instance, frame);
    if (is("IfcCsgSolid") || is("IfcManifoldSolidBrep")) return read(targetOf(reader_, instance, 0), frame);
    if (is("IfcFaceBasedSurfaceModel") || is("IfcShellBasedSurfaceModel") || is("IfcConnectedFaceSet")) {
        return readAll(targetsOf(reader_, instance, 0), frame);
    }
    if (is("IfcRepresentation")) return readAll(targetsOf(reader_, instance, 3), frame);
    // A set of geometry may hold surfaces beside curves and points, which cover nothing.
    return is("IfcStyledItem") || is("IfcCurve") || is("IfcPoint") || is("IfcTextLiteral") ||
           is("IfcAnnotationFillArea");
}

/// @return whether there is room for it, and its coordinates are numbers.
bool ShapeReader::add(Region region) {
    for (Ring& ring : region) {
        if (ring.size() > cornersLeft_) return false;
        cornersLeft_ -= ring.size();
        for (const Point& point : ring) {
            if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z)) return false;
            bottom = std::min(bottom, point.z);
            top = std::max(top, point.z);
        }
    }
    regions.push_back(std::move(region));
    return true;
}

bool ShapeReader::mapped(Slot item, const Frame& frame) {
    const auto mapping = mappingOf(reader_, item);
    return mapping && read(mapping->representation, frame.toOuter(mapping->frame));
}

bool ShapeReader::boolean(const step::Instance& result, const Frame& frame) {
    if (!read(targetOf(reader_, result, 1), frame)) return false;
    const bool both = !result.arguments.empty() && step::enumerationItem(result.arguments[0]) == "UNION";
    return !both || read(targetOf(reader_, result, 2), frame);
}

/// A profile that is moved from station to station: where it is at each of them, and what its edges pass over between
/// two of them.
bool ShapeReader::sweep(const std::vector<Region>& profile, const std::vector<Frame>& stations) {
    const auto placed = [](const Frame& station, const Region& region) {
        Region moved = region;
        for (Ring& ring : moved)
            for (Point& point : ring) point = station.toOuter(point);
        return moved;
    };
    for (const Region& region : profile) {
        std::optional<Region> before;
        for (const Frame& station : stations) {
            Region now = placed(station, region);
            for (std::size_t i = 0; before && i < now.size(); ++i) {
                const Ring &from = (*before)[i], &to = now[i];
                for (std::size_t j = 0; j < to.size(); ++j) {
                    const std::size_t next = (j + 1) % to.size();
                    if (!add({{from[j], from[next], to[next], to[j]}})) return false;
                }
            }
            if (!add(now)) return false;
            before = std::move(now);
        }
    }
    return true;
}

bool ShapeReader::extruded(const step::Instance& solid, const Frame& frame) {
    const auto profile = profileRegions(reader_, targetOf(reader_, solid, 0));
    if (!profile) return false;
    const Frame base = frame.toOuter(readAxisPlacement(reader_, targetOf(reader_, solid, 1)).value_or(Frame{}));
    const Point direction = readDirection(reader_, targetOf(reader_, solid, 2)).value_or(Point{0, 0, 1});
    const double height = numberIn(solid, 3);
    Frame lift;
    lift.origin = {direction.x * height, direction.y * height, direction.z * height};
    const Frame end = base.toOuter(lift);
    const double across = std::hypot(end.origin.x - base.origin.x, end.origin.y - base.origin.y);
    if (across > 1e-6 * std::abs(end.origin.z - base.origin.z)) return sweep(*profile, {base, end});
    // Straight up, as nearly all: seen from above, the profile itself.
    if (!sweep(*profile, {base})) return false;
    const double rise = end.origin.z - base.origin.z;
    bottom = std::min(bottom, bottom + rise);
    top = std::max(top, top + rise);
    return true;
}

bool ShapeReader::revolved(const step::Instance& solid, const Frame& frame) {
    step::Instance axis;
    const auto profile = profileRegions(reader_, targetOf(reader_, solid, 0));
    const Slot axisSlot = targetOf(reader_, solid, 2);
    if (!profile || !isOfClass(reader_, axisSlot, "IfcAxis1Placement") || !reader_.read(axisSlot, axis)) return false;
    const auto origin = readPoint(reader_, targetOf(reader_, axis, 0));
    const Point along = readDirection(reader_, targetOf(reader_, axis, 1)).value_or(Point{0, 0, 1});
    if (!origin) return false;
    double angle = numberIn(solid, 3);
    if (std::abs(angle) > 2 * std::numbers::pi + 1e-6) angle *= std::numbers::pi / 180;  // Given in degrees.
    if (!(std::abs(angle) < 100)) return false;
    const Frame base = frame.toOuter(readAxisPlacement(reader_, targetOf(reader_, solid, 1)).value_or(Frame{}));
    const int steps = std::clamp(static_cast<int>(std::ceil(std::abs(angle) * 8)), 1, 48);
    std::vector<Frame> stations;
    for (int i = 0; i <= steps; ++i) {
        const double turn = angle * i / steps, c = std::cos(turn), s = std::sin(turn);
        const auto row = [&](double x, double y, double z) {  // Rodrigues: a vector turned about `along`.
            const double dot = along.x * x + along.y * y + along.z * z;
            return Point{x * c + (along.y * z - along.z * y) * s + along.x * dot * (1 - c),
                         y * c + (along.z * x - along.x * z) * s + along.y * dot * (1 - c),
                         z * c + (along.x * y - along.y * x) * s + along.z * dot * (1 - c)};
        };
        Frame turned{row(1, 0, 0), row(0, 1, 0), row(0, 0, 1), {}};
        const Point moved = turned.toOuter(*origin);
        turned.origin = {origin->x - moved.x, origin->y - moved.y, origin->z - moved.z};
        stations.push_back(base.toOuter(turned));
    }
    return sweep(*profile, stations);
}

/// A pipe or a bar: around each piece of its line a rectangle, around each bend a circle.
bool ShapeReader::sweptDisk(const step::Instance& solid, const Frame& frame) {
    const auto line = curvePoints(reader_, targetOf(reader_, solid, 0));
    const double radius = numberIn(solid, 1);
    if (!line || !(radius > 0)) return false;
    for (std::size_t i = 0; i < line->size(); ++i) {
        const Point at = frame.toOuter((*line)[i]);
        Ring bend;
        for (const Point& point : ellipsePoints(radius, radius, 0, 2 * std::numbers::pi)) {
            bend.push_back({at.x + point.x, at.y + point.y, at.z});
        }
        if (i != 0) {
            const Point from = frame.toOuter((*line)[i - 1]);
            const double length = std::hypot(at.x - from.x, at.y - from.y);
            const double x = length > 0 ? -(at.y - from.y) / length * radius : 0;
            const double y = length > 0 ? (at.x - from.x) / length * radius : 0;
            if (!add({{{from.x - x, from.y - y, from.z},
                       {at.x - x, at.y - y, at.z},
                       {at.x + x, at.y + y, at.z},
                       {from.x + x, from.y + y, from.z}}})) {
                return false;
            }
        }
        if (i != 0 && i + 1 != line->size() && !add({std::move(bend)})) return false;
    }
    return true;
}

bool ShapeReader::block(const step::Instance& solid, const Frame& frame) {
    const Frame base = frame.toOuter(readAxisPlacement(reader_, targetOf(reader_, solid, 0)).value_or(Frame{}));
    const double x = numberIn(solid, 1), y = numberIn(solid, 2);
    Frame lift;
    lift.origin.z = numberIn(solid, 3);
    return sweep({{{{0, 0, 0}, {x, 0, 0}, {x, y, 0}, {0, y, 0}}}}, {base, base.toOuter(lift)});
}

bool ShapeReader::cylinder(const step::Instance& solid, const Frame& frame) {
    const Frame base = frame.toOuter(readAxisPlacement(reader_, targetOf(reader_, solid, 0)).value_or(Frame{}));
    const double radius = numberIn(solid, 2);
    Frame lift;
    lift.origin.z = numberIn(solid, 1);
    return sweep({{ellipsePoints(radius, radius, 0, 2 * std::numbers::pi)}}, {base, base.toOuter(lift)});
}

bool ShapeReader::face(const step::Instance& face, const Frame& frame) {
    Region region;
    for (const Slot bound : targetsOf(reader_, face, 0)) {
        auto ring = loop(bound, frame);
        if (!ring) return false;
        region.push_back(std::move(*ring));
    }
    return add(std::move(region));
}

std::optional<Ring> ShapeReader::loop(Slot bound, const Frame& frame) {
    step::Instance instance, loop;
    if (!isOfClass(reader_, bound, "IfcFaceBound") || !reader_.read(bound, instance)) return std::nullopt;
    const Slot slot = targetOf(reader_, instance, 0);
    if (slot == step::NoSlot || !reader_.read(slot, loop)) return std::nullopt;
    if (isOfClass(reader_, slot, "IfcEdgeLoop")) return edgeLoop(loop, frame);
    if (!isOfClass(reader_, slot, "IfcPolyLoop")) return std::nullopt;
    Ring ring;
    for (const Slot corner : targetsOf(reader_, loop, 0)) {
        const auto point = readPoint(reader_, corner);
        if (!point || budget_ == 0) return std::nullopt;
        --budget_;
        ring.push_back(frame.toOuter(*point));
    }
    return ring;
}

/// Its edges one after the other, each along its curve. A face that is not plane has its outline elsewhere; but the
/// edges of a round column or wall, seen from above, are its outline.
std::optional<Ring> ShapeReader::edgeLoop(const step::Instance& loop, const Frame& frame) {
    Ring ring;
    for (const Slot slot : targetsOf(reader_, loop, 0)) {
        step::Instance oriented, edge, vertex;
        if (budget_ == 0 || !isOfClass(reader_, slot, "IfcOrientedEdge") || !reader_.read(slot, oriented)) {
            return std::nullopt;
        }
        --budget_;
        const Slot element = targetOf(reader_, oriented, 2);
        if (!isOfClass(reader_, element, "IfcEdgeCurve") || !reader_.read(element, edge)) return std::nullopt;
        std::array<Point, 2> ends;
        for (const std::size_t i : {std::size_t{0}, std::size_t{1}}) {
            const Slot at = targetOf(reader_, edge, i);
            if (!isOfClass(reader_, at, "IfcVertexPoint") || !reader_.read(at, vertex)) return std::nullopt;
            const auto point = readPoint(reader_, targetOf(reader_, vertex, 0));
            if (!point) return std::nullopt;
            ends[i] = *point;
        }
        const bool sameSense = edge.arguments.size() > 3 && step::enumerationItem(edge.arguments[3]) != "F";
        const Slot curve = targetOf(reader_, edge, 2);
        auto points = curvePart(reader_, curve, ends[0], ends[1], sameSense);
        if (!points) points = curvePoints(reader_, curve);
        if (!points) return std::nullopt;
        if (oriented.arguments.size() > 3 && step::enumerationItem(oriented.arguments[3]) == "F") {
            std::reverse(points->begin(), points->end());
        }
        for (const Point& point : *points) ring.push_back(frame.toOuter(point));
    }
    return ring;
}

/// The parts of a surface may share one list.
const std::vector<Point>& ShapeReader::pointList(Slot list) {
    const auto [known, isNew] = lists_.try_emplace(list);
    if (isNew) known->second = readPointList(reader_, list);
    return known->second;
}

/// @param numbers  Places in the list, counted from 1.
std::optional<Ring> ShapeReader::indexed(const step::Value& numbers, const std::vector<Point>& points,
                                         const Frame& frame) {
    std::vector<step::Value> list;
    if (!step::splitAggregate(numbers, list) || !reader_.makeCorners(list.size() + 1)) return std::nullopt;
    Ring ring;
    for (const step::Value& number : list) {
        const double place = step::realValue(number).value_or(0);
        if (!(place >= 1 && place <= static_cast<double>(points.size()))) return std::nullopt;
        ring.push_back(frame.toOuter(points[static_cast<std::size_t>(place) - 1]));
    }
    return ring;
}

/// The points that the faces of a set are numbered by: those of its list, or those that its PnIndex picks from it.
/// @param picked  holds them in the latter case. @return null where the set says it wrongly.
const std::vector<Point>* ShapeReader::pointsOf(const step::Instance& faces, std::size_t pnIndex,
                                                std::vector<Point>& picked) {
    const std::vector<Point>& points = pointList(targetOf(reader_, faces, 0));
    std::vector<step::Value> places;
    if (faces.arguments.size() < pnIndex) return nullptr;
    if (faces.arguments.size() == pnIndex || !step::splitAggregate(faces.arguments[pnIndex], places)) return &points;
    if (!reader_.makeCorners(places.size())) return nullptr;
    for (const step::Value& place : places) {
        const double number = step::realValue(place).value_or(0);
        if (!(number >= 1 && number <= static_cast<double>(points.size()))) return nullptr;
        picked.push_back(points[static_cast<std::size_t>(number) - 1]);
    }
    return &picked;
}

bool ShapeReader::triangulated(const step::Instance& faces, const Frame& frame) {
    std::vector<step::Value> triangles;
    std::vector<Point> picked;
    const std::vector<Point>* points = pointsOf(faces, 4, picked);
    if (points == nullptr || !step::splitAggregate(faces.arguments[3], triangles)) return false;
    return std::all_of(triangles.begin(), triangles.end(), [&](const step::Value& triangle) {
        auto ring = indexed(triangle, *points, frame);
        return ring && add({std::move(*ring)});
    });
}

bool ShapeReader::polygonal(const step::Instance& faces, const Frame& frame) {
    std::vector<Point> picked;
    const std::vector<Point>* points = pointsOf(faces, 3, picked);
    if (points == nullptr) return false;
    for (const Slot slot : targetsOf(reader_, faces, 2)) {
        step::Instance polygon;
        if (budget_ == 0 || !isOfClass(reader_, slot, "IfcIndexedPolygonalFace") || !reader_.read(slot, polygon) ||
            polygon.arguments.empty()) {
            return false;
        }
        --budget_;
        auto outer = indexed(polygon.arguments[0], *points, frame);
        if (!outer) return false;
        Region region{std::move(*outer)};
        std::vector<step::Value> holes;
        if (polygon.arguments.size() > 1 && step::splitAggregate(polygon.arguments[1], holes)) {
            for (const step::Value& hole : holes) {
                auto inner = indexed(hole, *points, frame);
                if (!inner) return false;
                region.push_back(std::move(*inner));
            }
        }
        if (!add(std::move(region))) return false;
    }
    return true;
}

}  // namespace

std::optional<PlanShape> planShapeOf(GeometryReader& reader, const ElementGeometry& geometry) {
    ShapeReader shape(reader);
    for (const Slot representation : geometry.representations) {
        if (!shape.read(representation, geometry.frame)) return std::nullopt;
    }
    if (shape.regions.empty() || reader.spent()) return std::nullopt;
    return PlanShape{std::move(shape.regions), shape.bottom, shape.top};
}

}  // namespace model::ifc
