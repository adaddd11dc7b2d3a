#pragma once

#include "model/ifc/index/Workspace.hpp"

#include <functional>

namespace model::ifc {

/// The classifications of one object in file order. Notations (IFC2X3) are left out.
/// @param visit  What it is given is valid until a change of the file.
void forEachAssigned(Workspace& work, step::Slot object,
                     const std::function<void(const AssignedClassification&)>& visit);

/// The element's own, then those of its type object whose label the element has not itself.
void forEachClassification(Workspace& work, step::Slot element,
                           const std::function<void(const ClassificationReference&)>& visit);

}  // namespace model::ifc
