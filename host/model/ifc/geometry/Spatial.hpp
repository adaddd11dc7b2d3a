#pragma once

#include "model/ifc/index/Workspace.hpp"

namespace model::ifc {

/// The IfcBuildingStorey that the element stands in: up its containment, its aggregates and wholes, the wall of an
/// opening and the opening that it fills. NoSlot where it stands in none.
step::Slot storeyOf(Workspace& work, step::Slot element);

}  // namespace model::ifc
