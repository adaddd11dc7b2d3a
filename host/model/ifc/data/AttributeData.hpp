#pragma once

#include "model/ifc/index/Workspace.hpp"

namespace model::ifc {

/// The attributes of an element that are single values: strings, numbers, truth values, enumerations.
Result<std::vector<model::Attribute>> readAttributes(Workspace& work, Element element);

/// One attribute's text; empty where it is unset or there is none such.
std::u16string attributeText(Workspace& work, step::Slot slot, std::string_view name);

/// Refusals say the reason; the caller adds what element it was.
Status setAttribute(Workspace& work, Element element, std::string_view name, std::u16string_view value);

}  // namespace model::ifc
