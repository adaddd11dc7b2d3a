#pragma once

#include "model/ifc/data/ElementEdit.hpp"

namespace model::ifc {

/// Sets a property of one element. What others share is split first, at the lowest level that is needed: the property,
/// its set, the relation. What the type object gives is overridden on the element.
/// Refusals say value and reason; the caller adds element and item. Nothing is changed by a refused call.
/// @param notes  Takes what the user is to be told of a change that was made.
Status setProperty(Workspace& work, Element element, const Property& property, std::vector<std::string>& notes);

/// The same for a value given as a text. @return ErrorKind::BadValue where the text is no value of its type, or none of
/// the items that an enumerated property offers; ErrorKind::Refused where the property is a list, a range or a table.
Status setPropertyText(Workspace& work, Element element, const PropertyText& property, std::vector<std::string>& notes);

}  // namespace model::ifc
