#pragma once
// The signs for what fills openings.

#include "model/ifc/plan/Lines.hpp"

namespace model::ifc {

/// Leaf and swing of a door by its operation type, or its type object's: with its hinge on the left at the origin of
/// its own axes, opening towards their y, as the standard has it. None where the operation is not known or has no sign
/// in plan, and of doors that do not stand upright.
PlanLines doorLines(Workspace& work, step::Slot door, const std::vector<Ring>& outline);

/// The glass of a window: two lines close beside each other, along its outline.
PlanLines windowLines(Workspace& work, step::Slot window, const std::vector<Ring>& outline);

}  // namespace model::ifc
