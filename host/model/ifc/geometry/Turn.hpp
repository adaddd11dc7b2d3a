#pragma once

#include "model/ifc/geometry/Placement.hpp"

namespace model::ifc {

/// A turn about the vertical, from how a geometry is kept to how an element shows it.
struct Turn {
    double cosine = 1, sine = 0;

    Point turned(const Point& p) const { return {cosine * p.x - sine * p.y, sine * p.x + cosine * p.y, p.z}; }
    Point turnedBack(const Point& p) const { return {cosine * p.x + sine * p.y, cosine * p.y - sine * p.x, p.z}; }
    Frame turnedBack(const Frame& frame) const;
};

/// The turn after which a frame's x axis points along the model's in plan. None where it points along an axis of the
/// model already, as most do: then nothing is to be rounded.
Turn turnOf(const Frame& frame);

/// Axes without what rounding makes of them: those of frames that are equal but for their turn are the same numbers
/// again once they are turned back.
Frame rounded(const Frame& axes);

}  // namespace model::ifc
