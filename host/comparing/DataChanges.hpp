#pragma once
// The attributes, properties and classifications of one element in two models.

#include "comparing/Comparison.hpp"

namespace comparing {

/// Those that differ, the items of the first model in its order, then those that only the second has. What an update
/// asks for is filled in; whether one can, is not decided yet, but for what is clear from the values alone.
model::Result<std::vector<Change>> dataChanges(const model::Model& a, model::Element inA, const model::Model& b,
                                               model::Element inB);

}  // namespace comparing
