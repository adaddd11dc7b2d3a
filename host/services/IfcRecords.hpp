#pragma once
// The model's IFC data as the records of the host interface, and back.

#include "APITypes.hpp"
#include "model/Model.hpp"

namespace host {

API_IFCAttribute toRecord(const model::Attribute& attribute);
API_IFCProperty toRecord(const model::PropertyView& property);
API_IFCClassificationReference toRecord(const model::ClassificationReference& reference);

/// @pre the kind and the primitive type of the record are known ones; see isKnown.
model::Property fromRecord(const API_IFCProperty& record);
model::ClassificationReference fromRecord(const API_IFCClassificationReference& record);

/// Whether a record from outside has a kind and a primitive type that exist.
bool isKnown(const API_IFCProperty& record);

}  // namespace host
