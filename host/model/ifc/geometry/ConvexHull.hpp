#pragma once

#include "model/base/Records.hpp"

#include <vector>

namespace model::ifc {

/// The convex hull of points seen from above, counter-clockwise, without points on its edges; z is the lowest of all.
/// Fewer than three corners where the points lie on a line.
std::vector<Point> convexHull(std::vector<Point> points);

}  // namespace model::ifc
