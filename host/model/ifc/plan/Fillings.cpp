#include "model/ifc/plan/Fillings.hpp"

#include "model/ifc/geometry/Curves.hpp"
#include "model/step/syntax/Numbers.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace model::ifc {

namespace {

using step::Slot;

/// An outline's extent along a filling's own axes.
struct Extent {
    double left = std::numeric_limits<double>::max(), right = std::numeric_limits<double>::lowest();
    double back = left, front = right;

    double width() const { return right - left; }
    double depth() const { return front - back; }
    double middle() const { return (back + front) / 2; }
};

Extent extentOf(const std::vector<Ring>& outline, const Frame& frame) {
    Extent extent;
    const Frame inwards = inverseOf(frame);
    for (const Ring& ring : outline) {
        for (const Point& point : ring) {
            const Point local = inwards.toOuter(point);
            extent.left = std::min(extent.left, local.x);
            extent.right = std::max(extent.right, local.x);
            extent.back = std::min(extent.back, local.y);
            extent.front = std::max(extent.front, local.y);
        }
    }
    return extent;
}

/// Axes that stand upright: a hatch in a floor and a roof's window have no sides in plan.
std::optional<Frame> uprightFrame(Workspace& work, Slot element) {
    auto frame = placementOf(work, element);
    if (!frame || !(frame->z.z > 0.99)) return std::nullopt;
    frame->origin.z = 0;
    return frame;
}

double numberNamed(Workspace& work, Slot slot, std::string_view name) {
    GeometryReader reader(work);
    step::Instance instance;
    if (!reader.read(slot, instance)) return 0;
    return step::realValue(argumentNamed(reader, slot, instance, name)).value_or(0);
}

std::string operationOf(Workspace& work, Slot door) {
    GeometryReader reader(work);
    for (const Slot slot : {door, work.typeObject(door)}) {
        step::Instance instance;
        if (slot == step::NoSlot || !reader.read(slot, instance)) continue;
        const std::string_view item = step::enumerationItem(argumentNamed(reader, slot, instance, "OperationType"));
        if (!item.empty() && item != "NOTDEFINED") return std::string(item);
    }
    return {};
}

/// Draws in a door's own axes.
class DoorSign {
public:
    DoorSign(const Frame& frame, const Extent& extent) : frame_(frame), at_(extent) {}

    /// @param hinge  Along x. @param length  Of the leaf, negative to the left. @param side  1 opens towards y, -1
    /// away.
    void leaf(double hinge, double length, double side) {
        add({{hinge, at_.middle(), 0}, {hinge, at_.middle() + side * std::abs(length), 0}});
        std::vector<Point> swing = ellipsePoints(length, side * std::abs(length), 0, std::numbers::pi / 2);
        for (Point& point : swing) point = {point.x + hinge, point.y + at_.middle(), 0};
        add(std::move(swing));
    }
    void leaves(double hinge, double length, bool bothWays) {
        leaf(hinge, length, 1);
        if (bothWays) leaf(hinge, length, -1);
    }
    /// A panel, half before the opening and half beside it.
    void panel(double middle, double length) {
        const double y = at_.front + at_.depth() / 4;
        add({{middle - length / 2, y, 0}, {middle + length / 2, y, 0}});
    }
    /// Two panels that are folded together half-way.
    void folded(double from, double length) {
        std::vector<Point> points;
        for (int i = 0; i <= 4; ++i) {
            const double y = i % 2 == 0 ? 0 : std::abs(length) / 4;
            points.push_back({from + length * i / 8, at_.middle() + y, 0});
        }
        add(std::move(points));
    }
    /// A curtain that is rolled up above the opening: dashed, as what lies above the cut is.
    void overhead() {
        constexpr int Dashes = 6;
        const double step = at_.width() / (2 * Dashes - 1);
        for (int i = 0; i < Dashes; ++i) {
            const double from = at_.left + 2 * i * step;
            add({{from, at_.middle(), 0}, {from + step, at_.middle(), 0}});
        }
    }
    void revolving() {
        const double radius = at_.width() / 2, x = at_.left + radius, y = at_.middle(), d = radius * std::sqrt(0.5);
        std::vector<Point> round = ellipsePoints(radius, radius, 0, 2 * std::numbers::pi);
        for (Point& point : round) point = {point.x + x, point.y + y, 0};
        add(std::move(round));
        add({{x - d, y - d, 0}, {x + d, y + d, 0}});
        add({{x - d, y + d, 0}, {x + d, y - d, 0}});
    }

    PlanLines lines;

private:
    void add(std::vector<Point> points) {
        for (Point& point : points) point = frame_.toOuter(point);
        lines.push_back(std::move(points));
    }

    const Frame& frame_;
    const Extent& at_;
};

using Draw = void (*)(DoorSign&, const Extent&);

struct Operation {
    std::string_view name;
    Draw draw;
};

void drawTwoLeaves(DoorSign& sign, const Extent& at) {
    sign.leaves(at.left, at.width() / 2, false);
    sign.leaves(at.right, -at.width() / 2, false);
}

void drawTwoLeavesBothWays(DoorSign& sign, const Extent& at) {
    sign.leaves(at.left, at.width() / 2, true);
    sign.leaves(at.right, -at.width() / 2, true);
}

/// The leaf that the item names opens away, the other one as all others do.
void drawOppositeLeft(DoorSign& sign, const Extent& at) {
    sign.leaf(at.left, at.width() / 2, -1);
    sign.leaf(at.right, -at.width() / 2, 1);
}

void drawOppositeRight(DoorSign& sign, const Extent& at) {
    sign.leaf(at.left, at.width() / 2, 1);
    sign.leaf(at.right, -at.width() / 2, -1);
}

void drawTwoPanels(DoorSign& sign, const Extent& at) {
    sign.panel(at.left, at.width() / 2);
    sign.panel(at.right, at.width() / 2);
}

void drawTwoFolded(DoorSign& sign, const Extent& at) {
    sign.folded(at.left, at.width() / 2);
    sign.folded(at.right, -at.width() / 2);
}

/// What the standard's items look like, those of IFC2X3 (DOUBLE_DOOR_) and later ones (DOUBLE_PANEL_). Those that are
/// not here show no direction in plan.
constexpr std::array Operations = {
    Operation{"SINGLE_SWING_LEFT", [](DoorSign& s, const Extent& e) { s.leaf(e.left, e.width(), 1); }},
    Operation{"SINGLE_SWING_RIGHT", [](DoorSign& s, const Extent& e) { s.leaf(e.right, -e.width(), 1); }},
    Operation{"DOUBLE_SWING_LEFT", [](DoorSign& s, const Extent& e) { s.leaves(e.left, e.width(), true); }},
    Operation{"DOUBLE_SWING_RIGHT", [](DoorSign& s, const Extent& e) { s.leaves(e.right, -e.width(), true); }},
    Operation{"DOUBLE_DOOR_SINGLE_SWING", drawTwoLeaves},
    Operation{"DOUBLE_PANEL_SINGLE_SWING", drawTwoLeaves},
    Operation{"DOUBLE_DOOR_DOUBLE_SWING", drawTwoLeavesBothWays},
    Operation{"DOUBLE_PANEL_DOUBLE_SWING", drawTwoLeavesBothWays},
    Operation{"SWING_FIXED_LEFT", [](DoorSign& s, const Extent& e) { s.leaf(e.left, e.width() / 2, 1); }},
    Operation{"SWING_FIXED_RIGHT", [](DoorSign& s, const Extent& e) { s.leaf(e.right, -e.width() / 2, 1); }},
    Operation{"SLIDING_TO_LEFT", [](DoorSign& s, const Extent& e) { s.panel(e.left, e.width()); }},
    Operation{"SLIDING_TO_RIGHT", [](DoorSign& s, const Extent& e) { s.panel(e.right, e.width()); }},
    Operation{"DOUBLE_DOOR_SLIDING", drawTwoPanels},
    Operation{"DOUBLE_PANEL_SLIDING", drawTwoPanels},
    Operation{"FOLDING_TO_LEFT", [](DoorSign& s, const Extent& e) { s.folded(e.left, e.width()); }},
    Operation{"FOLDING_TO_RIGHT", [](DoorSign& s, const Extent& e) { s.folded(e.right, -e.width()); }},
    Operation{"DOUBLE_DOOR_FOLDING", drawTwoFolded},
    Operation{"DOUBLE_PANEL_FOLDING", drawTwoFolded},
    Operation{"DOUBLE_DOOR_SINGLE_SWING_OPPOSITE_LEFT", drawOppositeLeft},
    Operation{"DOUBLE_DOOR_SINGLE_SWING_OPPOSITE_RIGHT", drawOppositeRight},
    Operation{"ROLLINGUP", [](DoorSign& s, const Extent&) { s.overhead(); }},
    Operation{"REVOLVING", [](DoorSign& s, const Extent&) { s.revolving(); }},
};

}  // namespace

PlanLines doorLines(Workspace& work, Slot door, const std::vector<Ring>& outline) {
    const std::string name = operationOf(work, door);
    const auto operation =
        std::find_if(Operations.begin(), Operations.end(), [&](const Operation& known) { return known.name == name; });
    const auto frame = uprightFrame(work, door);
    if (operation == Operations.end() || !frame) return {};
    Extent extent = extentOf(outline, *frame);
    const double width = numberNamed(work, door, "OverallWidth");
    // The frame around it is wider than the opening; a shape that is much narrower is no door's.
    if (!(extent.width() > width / 2)) extent = {0, width, 0, 0};
    if (width > 0 && width < extent.width()) {
        const double over = (extent.width() - width) / 2;
        extent.left += over;
        extent.right -= over;
    }
    if (!(extent.width() > 0) || !std::isfinite(extent.width() + extent.depth())) return {};
    DoorSign sign(*frame, extent);
    operation->draw(sign, extent);
    return std::move(sign.lines);
}

PlanLines windowLines(Workspace& work, Slot window, const std::vector<Ring>& outline) {
    const auto frame = uprightFrame(work, window);
    if (!frame) return {};
    const Extent extent = extentOf(outline, *frame);
    const double width = extent.width(), depth = extent.depth();
    if (!(width > 0) || !(depth > 0) || !std::isfinite(width + depth)) return {};
    PlanLines lines;
    for (const double side : {-1.0, 1.0}) {
        const double apart = side * std::min(width, depth) / 10;
        const double x = (extent.left + extent.right) / 2 + apart, y = extent.middle() + apart;
        const std::array<Point, 2> ends = width >= depth
                                              ? std::array{Point{extent.left, y, 0}, Point{extent.right, y, 0}}
                                              : std::array{Point{x, extent.back, 0}, Point{x, extent.front, 0}};
        lines.push_back({frame->toOuter(ends[0]), frame->toOuter(ends[1])});
    }
    return lines;
}

}  // namespace model::ifc
