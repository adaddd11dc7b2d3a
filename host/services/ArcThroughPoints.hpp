#pragma once

#include "APITypes.hpp"

#include <optional>

namespace host {

struct Arc {
    API_Coord3D centre;
    bool clockwise;
};

/// The arc in plan that runs from `start` through `bulge` to `end`; its centre lies at the start's height. Nothing
/// where the three lie on one line, or two of them on one place: no circle, or more than one, goes through them.
std::optional<Arc> arcThrough(const API_Coord3D& start, const API_Coord3D& bulge, const API_Coord3D& end);

}  // namespace host
