#pragma once

#include "model/step/editing/Changes.hpp"

namespace model::step {

/// The highest id that the file's sections mention, in instances, references and comments; in strings it is only text.
/// A pass over all bytes: made when the first new instance needs an id, not at opening.
/// @param changes  knows where the instances that were changed since stand in the file; no new ones among them yet.
InstanceId highestId(const Index& index, const Changes& changes);

}  // namespace model::step
