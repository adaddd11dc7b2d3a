#pragma once

#include "model/ifc/plan/Project.hpp"

namespace model::ifc {

/// Number, name and area of an IfcSpace. Of its quantities the net floor area counts, then the gross one.
RoomFacts roomOf(Workspace& work, Project& project, step::Slot space);

}  // namespace model::ifc
