#pragma once

#include "model/ifc/data/ElementEdit.hpp"

namespace model::ifc {

/// Sets the classification reference that an element has under a label, or gives it one. A reference or relation that
/// others share is split first; an IfcClassification is never changed, but one that fits is used.
/// Refusals say value and reason; the caller adds element and item. Nothing is changed by a refused call.
/// @param notes  Takes what the user is to be told of a change that was made.
Status setClassification(Workspace& work, Element element, const ClassificationReference& reference,
                         std::vector<std::string>& notes);

/// Takes the element's classification of a label away, with a relation that is the element's alone and a reference that
/// nobody uses any more; without one, nothing is changed. ErrorKind::Refused where it is the type object's, which
/// others have too.
Status removeClassification(Workspace& work, Element element, std::u16string_view system,
                            std::vector<std::string>& notes);

}  // namespace model::ifc
