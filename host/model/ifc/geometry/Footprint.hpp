#pragma once

#include "model/ifc/geometry/ElementGeometry.hpp"

namespace model::ifc {

/// The plan hull of geometry: of all points under its representations, of extruded profiles, of mapped items. Curved
/// outlines count by points on them. Bounded work: of a very large geometry the part read first counts. Empty where
/// there is none.
std::vector<Point> planHullOf(GeometryReader& reader, const ElementGeometry& geometry);

/// The same of an element, in the model's coordinates.
std::vector<Point> footprintOf(Workspace& work, step::Slot element);

}  // namespace model::ifc
