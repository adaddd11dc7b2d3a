#pragma once
// What a plan draws beside the areas that elements cover.

#include "model/ifc/geometry/PlanShape.hpp"

namespace model::ifc {

using PlanLines = std::vector<std::vector<Point>>;

/// The curves of an element's representation, of mapped ones and of areas' edges, in the model's coordinates: of an
/// annotation, which covers nothing. Bounded work.
PlanLines curvesOf(Workspace& work, step::Slot element);

/// The axes of an IfcGrid. Those whose curve has no ends, or is none that is known, are left out.
std::vector<GridAxis> gridAxesOf(Workspace& work, step::Slot grid);

/// The edges of a stair's steps: of its level faces, height by height. None where they are too many to be steps.
PlanLines stepsOf(const PlanShape& shape);

}  // namespace model::ifc
