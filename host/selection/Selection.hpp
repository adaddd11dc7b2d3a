#pragma once
// Choosing elements by the selector syntax of the IFC world: "IfcDoor, Pset_DoorCommon.FireRating=NULL + IfcWindow".

#include "model/Model.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace selection {

/// The elements that the selection chooses, in the model's order. The time is linear in the size of the model for each
/// facet.
/// @return ErrorKind::BadValue with the reason and the selection with its place marked.
model::Result<std::vector<model::Element>> choose(const model::Model& model, std::string_view selection);

/// The attributes and properties that a selection without a mistake compares, without their sets; those that are given
/// as expressions left out.
std::vector<std::string> itemsNamed(std::string_view selection);

}  // namespace selection
