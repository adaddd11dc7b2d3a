#pragma once
// Which changes an update file can ask for, so that an import with --exact makes them.

#include "comparing/Comparison.hpp"

namespace comparing {

/// Fills in the obstacles, and completes what is to be asked for. What the import would store is tried out on the model
/// and taken back.
model::Status judgeChanges(model::Model& a, std::vector<ChangedElement>& changed);

/// The line of an update file, with its line end; the old value is left out where the line would be too long with it.
std::string updateLine(const model::Model& a, const ChangedElement& element, const Change& change);

}  // namespace comparing
