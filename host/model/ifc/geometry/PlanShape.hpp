#pragma once

#include "model/ifc/geometry/ElementGeometry.hpp"
#include "model/ifc/geometry/Regions.hpp"

namespace model::ifc {

/// The areas that an element's geometry covers: the faces of its solids and surfaces, seen from above.
struct PlanShape {
    std::vector<Region> regions;
    double bottom = 0, top = 0;  ///< Of all of it, along z.
};

/// What follows from profiles that are extruded, revolved or swept along a line, from faces and faceted surfaces, boxes
/// and cylinders, boolean results and mapped items. Of a difference the first operand counts, which hides what is
/// taken away below it. Bounded work.
/// @return nothing where it has no geometry of an area, where some of it is of another kind, or where it is
///         too large: then only planHullOf() tells.
std::optional<PlanShape> planShapeOf(GeometryReader& reader, const ElementGeometry& geometry);

}  // namespace model::ifc
