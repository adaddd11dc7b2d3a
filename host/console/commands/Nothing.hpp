#pragma once
// What is said where a command finds nothing: why, and what was probably meant.

#include "console/Failure.hpp"
#include "console/ModelSession.hpp"

#include <functional>
#include <string>
#include <vector>

namespace console {

using Models = std::vector<std::reference_wrapper<const model::Model>>;

/// No element is chosen: the models have none, or a selection names an item that nobody has, or there is none such.
void sayNothingChosen(const Models& models, const std::string& name, const std::string& where);
void sayNothingChosen(ModelSession& session, const std::string& where);

/// "no element has an item Nmae; nearest: Name"
std::string noSuchItem(const std::string& item, const std::string& nearest);

/// Every item that some element has, as an update file names it.
std::vector<std::string> itemsOf(const model::Model& model);

}  // namespace console
