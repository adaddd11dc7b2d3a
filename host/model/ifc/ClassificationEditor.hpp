#pragma once

#include "model/ifc/ElementEdit.hpp"

namespace model::ifc {

/// Sets the classification reference that an element has under a label, or gives it one. A reference or relation that
/// others share is split first; an IfcClassification is never changed, but one that fits is used.
/// Refusals say value and reason; the caller adds element and item. Nothing is changed by a refused call.
Status setClassification(Workspace& work, Element element, const ClassificationReference& reference);

}  // namespace model::ifc
