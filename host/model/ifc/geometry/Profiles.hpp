#pragma once

#include "model/ifc/geometry/Placement.hpp"
#include "model/ifc/geometry/Regions.hpp"

namespace model::ifc {

/// Points of a parameterized profile's outline in the profile's own plane: of a rectangle, circle or ellipse, and the
/// corners around a steel section. Nothing for a profile of another kind, which is given by its curves.
std::optional<std::vector<Point>> profilePoints(GeometryReader& reader, step::Slot profile);

/// The area of a profile in its own plane (IfcProfileDef), several of a composite one. Rounded corners are square.
/// Nothing for a profile of another kind, and for one that cannot be read.
std::optional<std::vector<Region>> profileRegions(GeometryReader& reader, step::Slot profile);

}  // namespace model::ifc
