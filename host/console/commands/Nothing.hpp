#pragma once
// What is said where a command finds nothing: why, and what was probably meant.

#include "console/Failure.hpp"
#include "console/ModelSession.hpp"

#include <string>
#include <vector>

namespace console {

/// No element is chosen: the model has none, or a selection names an item that nobody has, or there is just none such.
void sayNothingChosen(ModelSession& session, const std::string& where);

/// "no element has an item Nmae; nearest: Name"
std::string noSuchItem(const std::string& item, const std::string& nearest);

/// Every item that some element has, as an update file names it.
std::vector<std::string> itemsOf(const model::Model& model);

}  // namespace console
