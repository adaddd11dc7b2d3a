#include "model/ifc/geometry/AlongCurve.hpp"

#include "model/ifc/geometry/Curves.hpp"
#include "model/step/syntax/Numbers.hpp"
#include "text/Ascii.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace model::ifc {

using step::Slot;

/// What is known of a curve: of a gradient curve that of its base, and the heights along it.
struct Axis {
    /// A piece whose curvature grows evenly: a line, an arc, a clothoid. Only lines rise.
    struct Piece {
        Point start;
        Point along{1, 0, 0};  ///< The direction at its start; of length 1.
        double length = 0;
        double bend = 0;      ///< The curvature at its start, positive to the left.
        double bendMore = 0;  ///< And what is added to it by each unit of length.

        bool isStraight() const { return bend == 0 && bendMore == 0; }
        double headingAt(double distance) const {
            return std::atan2(along.y, along.x) + distance * (bend + distance * bendMore / 2);
        }
    };

    std::optional<std::vector<Piece>> pieces;  ///< Nothing where things along it cannot be placed.
    std::vector<Piece> heights;
    bool isGradient = false;
};

namespace {

using Piece = Axis::Piece;

constexpr double FullTurn = 2 * std::numbers::pi;

/// The integral of a function over a short way; Gauss, exact for polynomials of the ninth degree.
template <class Function>
double integral(double from, double to, const Function& function) {
    constexpr std::array Places = {0.0, 0.5384693101056831, 0.9061798459386640};
    constexpr std::array Weights = {0.5688888888888889, 0.4786286704993665, 0.2369268850561891};
    const double middle = (from + to) / 2, half = (to - from) / 2;
    double sum = Weights[0] * function(middle);
    for (std::size_t i = 1; i < Places.size(); ++i)
        sum += Weights[i] * (function(middle - half * Places[i]) + function(middle + half * Places[i]));
    return sum * half;
}

/// Nothing where it winds up more often than any track does.
std::optional<Point> placeOn(const Piece& piece, double distance) {
    const Point &start = piece.start, &along = piece.along;
    if (piece.isStraight()) {
        return Point{start.x + along.x * distance, start.y + along.y * distance, start.z + along.z * distance};
    }
    constexpr double MostTurns = 10, Step = 0.2;
    const double turn = std::abs(distance) * (std::abs(piece.bend) + std::abs(piece.bendMore * distance));
    if (!(turn < MostTurns * FullTurn)) return std::nullopt;
    const int steps = static_cast<int>(std::ceil(turn / Step)) + 1;
    Point place = start;
    for (int i = 0; i < steps; ++i) {
        const double from = distance * i / steps, to = distance * (i + 1) / steps;
        place.x += integral(from, to, [&](double s) { return std::cos(piece.headingAt(s)); });
        place.y += integral(from, to, [&](double s) { return std::sin(piece.headingAt(s)); });
    }
    return place;
}

using Pieces = std::vector<Piece>;

/// An arc through three points of one height.
std::optional<Piece> arcThrough(const Point& a, const Point& b, const Point& c) {
    // From the first point on: far from the origin the squares would lose what the arc is about.
    const double bx = b.x - a.x, by = b.y - a.y, cx = c.x - a.x, cy = c.y - a.y;
    const double d = 2 * (bx * cy - by * cx);
    const double x = (cy * (bx * bx + by * by) - by * (cx * cx + cy * cy)) / d;
    const double y = (bx * (cx * cx + cy * cy) - cx * (bx * bx + by * by)) / d;
    const double radius = std::hypot(x, y), side = d > 0 ? 1 : -1;
    if (!std::isfinite(radius) || a.z != b.z || a.z != c.z) return std::nullopt;
    double turn = side * (std::atan2(cy - y, cx - x) - std::atan2(-y, -x));
    while (turn <= 0) turn += FullTurn;
    return Piece{a, {side * y / radius, -side * x / radius, 0}, radius * turn, side / radius};
}

class PieceReader {
public:
    explicit PieceReader(GeometryReader& reader) : reader_(reader) {}

    std::optional<Pieces> read(Slot curve) {
        constexpr int Deepest = 8;
        step::Instance instance;
        if (depth_ == Deepest || curve == step::NoSlot || !reader_.read(curve, instance)) return std::nullopt;
        const auto is = [&](std::string_view name) { return isOfClass(reader_, curve, name); };
        ++depth_;
        bool known = false;
        if (is("IfcPolyline")) known = polyline(instance);
        if (is("IfcIndexedPolyCurve")) known = indexed(instance);
        // Gradient curves are composite ones of another meaning; see below.
        if (is("IfcCompositeCurve") && !is("IfcGradientCurve") && !is("IfcSegmentedReferenceCurve"))
            known = composite(instance);
        --depth_;
        if (!known || reader_.spent()) return std::nullopt;
        return std::move(pieces_);
    }

    /// What an IfcCurveSegment shows of its parent curve: where its placement says, in the placement's direction.
    std::optional<Piece> segment(Slot slot) {
        step::Instance instance, parent;
        if (!isOfClass(reader_, slot, "IfcCurveSegment") || !reader_.read(slot, instance)) return std::nullopt;
        const auto place = readAxisPlacement(reader_, targetOf(reader_, instance, 1));
        const auto from = lengthIn(instance, 2), length = lengthIn(instance, 3);
        const Slot curve = targetOf(reader_, instance, 4);
        if (!place || !from || !length || curve == step::NoSlot || !reader_.read(curve, parent)) return std::nullopt;
        Piece piece{place->origin, place->x, std::abs(*length)};
        const double side = *length < 0 ? -1 : 1;
        if (isOfClass(reader_, curve, "IfcLine")) return piece;
        const double constant = numberIn(parent, 1);
        if (isOfClass(reader_, curve, "IfcCircle")) {
            piece.bend = side / constant;
        } else if (isOfClass(reader_, curve, "IfcClothoid")) {
            piece.bendMore = 1 / (constant * std::abs(constant));
            piece.bend = side * *from * piece.bendMore;
        } else {
            return std::nullopt;
        }
        return std::isfinite(piece.bend) && std::isfinite(piece.bendMore) ? std::optional(piece) : std::nullopt;
    }

private:
    bool add(const Piece& piece) {
        if (piece.length > 0) pieces_.push_back(piece);  // one of no length marks the end of an axis
        return std::isfinite(piece.length) && pieces_.size() <= MostPieces;
    }

    bool addLine(const Point& from, const Point& to) {
        const Point way{to.x - from.x, to.y - from.y, to.z - from.z};
        const double length = std::hypot(way.x, way.y, way.z);
        return length == 0 || add({from, {way.x / length, way.y / length, way.z / length}, length});
    }

    bool addLines(const std::vector<Point>& points) {
        for (std::size_t i = 1; i < points.size(); ++i)
            if (!addLine(points[i - 1], points[i])) return false;
        return points.size() > 1;
    }

    bool polyline(const step::Instance& instance) {
        std::vector<Point> points;
        const std::vector<Slot> slots = targetsOf(reader_, instance, 0);
        if (slots.size() > MostPieces + 1) return false;
        for (const Slot slot : slots) {
            const auto point = readPoint(reader_, slot);
            if (!point) return false;
            points.push_back(*point);
        }
        return addLines(points);
    }

    bool indexed(const step::Instance& instance) {
        const std::vector<Point> corners = readPointList(reader_, targetOf(reader_, instance, 0));
        std::vector<step::Value> segments, numbers;
        if (instance.arguments.size() < 2 || !step::splitAggregate(instance.arguments[1], segments)) {
            return corners.size() <= MostPieces + 1 && addLines(corners);
        }
        for (const step::Value& segment : segments) {
            std::string_view keyword;
            step::Value list;
            if (!step::splitTyped(segment, keyword, list) || !step::splitAggregate(list, numbers)) return false;
            std::vector<Point> points;
            for (const step::Value& number : numbers) {
                const double place = step::realValue(number).value_or(0);
                if (!(place >= 1 && place <= static_cast<double>(corners.size()))) return false;
                points.push_back(corners[static_cast<std::size_t>(place) - 1]);
            }
            const bool isArc = text::equalIgnoringCase(keyword, "IFCARCINDEX");
            const auto arc = isArc && points.size() == 3 ? arcThrough(points[0], points[1], points[2]) : std::nullopt;
            if (isArc ? !arc || !add(*arc) : !addLines(points)) return false;
        }
        return true;
    }

    bool composite(const step::Instance& instance) {
        for (const Slot slot : targetsOf(reader_, instance, 0)) {
            step::Instance part;
            if (isOfClass(reader_, slot, "IfcCompositeCurveSegment")) {
                // One that runs against its curve would have to be turned round first.
                if (!reader_.read(slot, part) || part.arguments.size() < 3 ||
                    step::enumerationItem(part.arguments[1]) == "F" || !inPart(targetOf(reader_, part, 2))) {
                    return false;
                }
                continue;
            }
            const auto piece = segment(slot);
            if (!piece || !add(*piece)) return false;
        }
        return true;
    }

    bool inPart(Slot curve) {
        Pieces before = std::move(pieces_);
        pieces_.clear();
        const auto inner = read(curve);
        pieces_ = std::move(before);
        if (!inner) return false;
        pieces_.insert(pieces_.end(), inner->begin(), inner->end());
        return pieces_.size() <= MostPieces;
    }

    GeometryReader& reader_;
    Pieces pieces_;
    int depth_ = 0;
};

/// The axes at a place, from the direction there; nothing where that is upright.
std::optional<Frame> frameAt(const Point& place, const Point& along) {
    const double flat = std::hypot(along.x, along.y), whole = std::hypot(flat, along.z);
    const bool finite = std::isfinite(place.x) && std::isfinite(place.y) && std::isfinite(place.z);
    if (!finite || !(flat > 1e-9 * whole)) return std::nullopt;
    Frame frame;
    frame.origin = place;
    frame.x = {along.x / whole, along.y / whole, along.z / whole};
    frame.y = {-along.y / flat, along.x / flat, 0};
    frame.z = {-frame.x.z * frame.y.y, frame.x.z * frame.y.x, flat / whole};
    return frame;
}

/// Files give distances and lengths with a few digits less than they were computed with.
constexpr double Tolerance = 1e-6;

std::optional<Frame> frameOn(const Pieces& pieces, double distance) {
    const double slack = Tolerance * (1 + std::abs(distance));
    if (!(distance >= -slack)) return std::nullopt;
    double left = std::max(distance, 0.0);
    for (const Piece& piece : pieces) {
        const bool last = &piece == &pieces.back();
        if (left > piece.length + (last ? slack : 0)) {
            left -= piece.length;
            continue;
        }
        const double into = std::min(left, piece.length);
        const auto place = placeOn(piece, into);
        if (!place) return std::nullopt;
        if (piece.isStraight()) return frameAt(*place, piece.along);
        const double heading = piece.headingAt(into);
        return frameAt(*place, {std::cos(heading), std::sin(heading), 0});
    }
    return std::nullopt;
}

/// The height and the rise there of a piece whose x is the distance in plan and whose y the height.
struct Height {
    double height, rise;
};
std::optional<Height> heightOn(const Piece& piece, double distance) {
    const double over = distance - piece.start.x;
    if (piece.isStraight()) {
        const double rise = piece.along.y / piece.along.x;
        return Height{piece.start.y + rise * over, rise};
    }
    const double sine = piece.along.y + piece.bend * over;
    if (piece.bendMore != 0 || !(std::abs(sine) < 1) || !(piece.along.x > 0)) return std::nullopt;
    const double cosine = std::sqrt(1 - sine * sine);
    return Height{piece.start.y + (piece.along.x - cosine) / piece.bend, sine / cosine};
}

std::optional<Frame> frameOnGradient(const Axis& axis, double distance) {
    const auto flat = frameOn(*axis.pieces, distance);
    if (!flat) return std::nullopt;
    const Piece* on = nullptr;
    for (const Piece& piece : axis.heights)
        if (on == nullptr || (piece.start.x <= distance && piece.length > 0)) on = &piece;
    const auto height = on != nullptr ? heightOn(*on, distance) : std::nullopt;
    if (!height) return std::nullopt;
    return frameAt({flat->origin.x, flat->origin.y, height->height}, {flat->x.x, flat->x.y, height->rise});
}

/// Nothing where one of them is of a kind that is not known, or there are too many.
std::optional<Pieces> readHeights(GeometryReader& reader, const step::Instance& gradient) {
    Pieces heights;
    for (const Slot slot : targetsOf(reader, gradient, 0)) {
        const auto piece = PieceReader(reader).segment(slot);
        if (!piece || heights.size() == MostPieces) return std::nullopt;
        heights.push_back(*piece);
    }
    return heights;
}

/// With a budget of its own: what one thing beside the track has used up is nothing to the others.
Axis readAxis(Workspace& work, Slot curve) {
    GeometryReader reader(work);
    step::Instance instance;
    Axis axis;
    axis.isGradient = isOfClass(reader, curve, "IfcGradientCurve");
    if (!axis.isGradient) {
        axis.pieces = PieceReader(reader).read(curve);
        return axis;
    }
    if (!reader.read(curve, instance)) return axis;
    auto heights = readHeights(reader, instance);
    if (!heights || reader.spent()) return axis;
    axis.heights = std::move(*heights);
    axis.pieces = PieceReader(reader).read(targetOf(reader, instance, 2));
    return axis;
}

std::shared_ptr<const Axis> axisOf(Workspace& work, Slot curve) {
    if (const auto known = work.axes.byCurve.find(curve); known != work.axes.byCurve.end()) return known->second;
    auto axis = std::make_shared<const Axis>(readAxis(work, curve));
    const std::size_t pieces = 1 + axis->heights.size() + (axis->pieces ? axis->pieces->size() : 0);
    if (work.axes.pieces + pieces > MostKeptPieces) work.axes = {};
    work.axes.byCurve.emplace(curve, axis);
    work.axes.pieces += pieces;
    return axis;
}

}  // namespace

std::optional<double> lengthIn(const step::Instance& instance, std::size_t attributeIndex) {
    std::string_view keyword;
    step::Value inner;
    if (attributeIndex >= instance.arguments.size()) return std::nullopt;
    const step::Value& value = instance.arguments[attributeIndex];
    if (!step::splitTyped(value, keyword, inner)) return step::realValue(value);
    if (text::equalIgnoringCase(keyword, "IFCPARAMETERVALUE")) return std::nullopt;
    return step::realValue(inner);
}

std::optional<Frame> frameAlong(Workspace& work, Slot curve, double distance) {
    const auto axis = axisOf(work, curve);
    if (!axis->pieces) return std::nullopt;
    return axis->isGradient ? frameOnGradient(*axis, distance) : frameOn(*axis->pieces, distance);
}

}  // namespace model::ifc
