#pragma once

#include "model/ifc/geometry/Placement.hpp"

namespace model::ifc {

/// Points of a parameterized profile's outline in the profile's own plane: of a rectangle, circle or ellipse, and the
/// corners around a steel section. Nothing for a profile of another kind, which is given by its curves.
std::optional<std::vector<Point>> profilePoints(Workspace& work, step::Slot profile);

/// Points on an ellipse around the origin, from one angle to another (radians).
std::vector<Point> ellipsePoints(double semiX, double semiY, double from, double to);

}  // namespace model::ifc
