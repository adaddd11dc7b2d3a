#include "model/ifc/geometry/Profiles.hpp"

#include "model/step/syntax/Numbers.hpp"

#include <cmath>
#include <numbers>

namespace model::ifc {

namespace {

using step::Slot;

constexpr double FullTurn = 2 * std::numbers::pi;

std::vector<Point> rectangle(double width, double height) {
    const double x = width / 2, y = height / 2;
    return {{-x, -y, 0}, {x, -y, 0}, {x, y, 0}, {-x, y, 0}};
}

/// Where in the arguments the sizes along x and y of a profile's bounding rectangle stand.
struct SizeRow {
    std::string_view ifcClass;
    std::size_t x, y;
};

// Sections of a depth and a width give the depth first, along y.
constexpr std::array Sizes = {
    SizeRow{"IfcRectangleProfileDef", 3, 4},        SizeRow{"IfcIShapeProfileDef", 3, 4},
    SizeRow{"IfcAsymmetricIShapeProfileDef", 3, 4}, SizeRow{"IfcTrapeziumProfileDef", 3, 5},
    SizeRow{"IfcLShapeProfileDef", 4, 3},           SizeRow{"IfcTShapeProfileDef", 4, 3},
    SizeRow{"IfcUShapeProfileDef", 4, 3},           SizeRow{"IfcCShapeProfileDef", 4, 3},
    SizeRow{"IfcZShapeProfileDef", 4, 3},
};

std::optional<std::vector<Point>> unplacedPoints(Workspace& work, Slot profile, const step::Instance& instance) {
    const auto number = [&](std::size_t attributeIndex) {
        return attributeIndex < instance.arguments.size()
                   ? step::realValue(instance.arguments[attributeIndex]).value_or(0)
                   : 0.0;
    };
    if (isOfClass(work, profile, "IfcCircleProfileDef")) return ellipsePoints(number(3), number(3), 0, FullTurn);
    if (isOfClass(work, profile, "IfcEllipseProfileDef")) return ellipsePoints(number(3), number(4), 0, FullTurn);
    for (const SizeRow& row : Sizes) {
        if (isOfClass(work, profile, row.ifcClass)) return rectangle(number(row.x), number(row.y));
    }
    return std::nullopt;
}

}  // namespace

std::vector<Point> ellipsePoints(double semiX, double semiY, double from, double to) {
    constexpr int Steps = 24;  // The hull stays within 1 % of the radius.
    std::vector<Point> points;
    for (int i = 0; i <= Steps; ++i) {
        const double angle = from + (to - from) * i / Steps;
        points.push_back({semiX * std::cos(angle), semiY * std::sin(angle), 0});
    }
    return points;
}

std::optional<std::vector<Point>> profilePoints(Workspace& work, Slot profile) {
    step::Instance instance;
    if (!isOfClass(work, profile, "IfcParameterizedProfileDef") || !work.file.read(profile, instance)) {
        return std::nullopt;
    }
    auto points = unplacedPoints(work, profile, instance);
    const auto position = readAxisPlacement(work, targetOf(work, instance, 2));
    if (!points || !position) return points;
    for (Point& point : *points) point = position->toOuter(point);
    return points;
}

}  // namespace model::ifc
