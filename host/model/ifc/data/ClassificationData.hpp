#pragma once

#include "model/ifc/index/Workspace.hpp"

namespace model::ifc {

/// One classification of an element or of its type object.
struct AssignedClassification {
    step::Slot relation;
    step::Slot reference;       ///< An IfcClassificationReference, or an IfcClassification given directly.
    step::Slot classification;  ///< At the end of the chain of referenced sources; NoSlot where there is none.
    ClassificationReference data;
};

/// The classifications of one object in file order. Notations (IFC2X3) are left out.
std::vector<AssignedClassification> assignedClassifications(Workspace& work, step::Slot object);

/// The element's own, then those of its type object whose label the element has not itself.
std::vector<ClassificationReference> readClassifications(Workspace& work, step::Slot element);

}  // namespace model::ifc
