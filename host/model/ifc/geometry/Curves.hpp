#pragma once

#include "model/ifc/geometry/Placement.hpp"

namespace model::ifc {

/// Points along a curve (IfcBoundedCurve, IfcConic), in its own coordinates and from its beginning to its end; on arcs
/// so many that they stay within a hundredth of the radius. A closed curve ends where it began. Nothing for a curve of
/// another kind, and for one that cannot be read.
std::optional<std::vector<Point>> curvePoints(GeometryReader& reader, step::Slot curve);

/// The part of a curve between two points on it, `from` and `to` being the same for all of a closed one.
/// @param forwards  whether the part runs as the curve does.
std::optional<std::vector<Point>> curvePart(GeometryReader& reader, step::Slot curve, const Point& from,
                                            const Point& to, bool forwards);

/// The angles (radians) between which an arc of a conic runs counter-clockwise, from the parameters that trim it: in
/// degrees or radians, as the project's units say; an angle above a full turn in radians is in degrees.
struct Angles {
    double from, to;
};
Angles trimmedAngles(double first, double second, bool forwards);

/// Points on an ellipse around the origin, from one angle to another (radians).
std::vector<Point> ellipsePoints(double semiX, double semiY, double from, double to);

/// The coordinates of an IfcCartesianPointList; two dimensions lie at z = 0. Empty for anything else.
std::vector<Point> readPointList(GeometryReader& reader, step::Slot list);

/// An argument that is a number; 0 where it is none.
double numberIn(const step::Instance& instance, std::size_t attributeIndex);
/// The instances that a list of references names, those that are not there included as NoSlot.
std::vector<step::Slot> targetsOf(GeometryReader& reader, const step::Instance& instance, std::size_t attributeIndex);

}  // namespace model::ifc
