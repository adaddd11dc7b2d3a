#pragma once

#include "model/base/Records.hpp"

#include <optional>
#include <vector>

namespace model::ifc {

using Ring = std::vector<Point>;  ///< Closed from the last point to the first, which is not repeated.

/// A plane area in space: what is inside an odd number of rings.
using Region = std::vector<Ring>;

/// Areas in plan, counted where they lie one upon the other.
/// @param shapes   Seen from above; which way round their rings go does not matter.
/// @param removed  The same, taken away from them.
/// @return the outline of what is left: outer rings counter-clockwise, holes clockwise, z = 0, none where nothing is
///         left. Nothing where the shapes are too intricate to be put together in a bounded time.
std::optional<std::vector<Ring>> planUnion(const std::vector<Region>& shapes, const std::vector<Region>& removed);

}  // namespace model::ifc
