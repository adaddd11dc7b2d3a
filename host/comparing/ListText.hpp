#pragma once

#include "model/ifc/index/Workspace.hpp"

#include <string>

namespace comparing {

/// The values of a property that holds several or none (list, range, enumeration, table), for a person: "20.0; 5.0"
/// for a range, "NEW, EXISTING" for chosen items. What it refers to (units, the items that it offers) is left out.
/// Empty for NoSlot.
std::string listText(model::ifc::Workspace& work, model::step::Slot property);

}  // namespace comparing
