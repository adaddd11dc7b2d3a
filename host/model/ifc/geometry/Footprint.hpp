#pragma once

#include "model/ifc/geometry/Spatial.hpp"

namespace model::ifc {

/// The plan hull of an element's geometry in the model's coordinates: of all points under its representation, of
/// extruded profiles, of mapped items. Curved outlines count by points on them. Bounded work: of a very large geometry
/// the part read first counts. Empty where there is none, or no placement that can be followed.
std::vector<Point> footprintOf(Workspace& work, step::Slot element);

/// The element's outline in plan: see Model::outline.
PlanOutline outlineOf(Workspace& work, Openings& openings, step::Slot element);

}  // namespace model::ifc
