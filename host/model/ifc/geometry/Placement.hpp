#pragma once

#include "model/ifc/geometry/GeometryReader.hpp"

namespace model::ifc {

/// Where a local coordinate system lies: its axes and its origin. The axes are of length 1 and at right angles but in a
/// transformation that scales.
struct Frame {
    Point x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1};
    Point origin;

    Point toOuter(const Point& local) const;
    /// A direction: the origin does not count.
    Point turned(const Point& local) const;
    /// The frame `inner`, given in this one, in what this one is given in.
    Frame toOuter(const Frame& inner) const;
};

/// The way back; of a frame with axes of length 1 at right angles.
Frame inverseOf(const Frame& frame);

/// An IfcCartesianTransformationOperator of two or three dimensions, scaled and mirrored as it says. Nothing for
/// anything else.
std::optional<Frame> readTransformation(GeometryReader& reader, step::Slot slot);

/// An IfcAxis2Placement3D or IfcAxis2Placement2D. Nothing for anything else.
std::optional<Frame> readAxisPlacement(GeometryReader& reader, step::Slot slot);

/// The coordinates of an IfcCartesianPoint; two dimensions lie at z = 0.
std::optional<Point> readPoint(GeometryReader& reader, step::Slot slot);
/// The unit vector of an IfcDirection. Nothing where it has no length.
std::optional<Point> readDirection(GeometryReader& reader, step::Slot slot);

/// Whether the instance is of a class or below; false for NoSlot and unknown classes.
bool isOfClass(GeometryReader& reader, step::Slot slot, std::string_view name);
/// The instance that an argument refers to; NoSlot where it refers to none.
step::Slot targetOf(GeometryReader& reader, const step::Instance& instance, std::size_t attributeIndex);
/// The argument for an attribute of the slot's class; Unset where there is none such.
step::Value argumentNamed(GeometryReader& reader, step::Slot slot, const step::Instance& instance,
                          std::string_view name);

/// The element's coordinate system in the model's, up the chain of its placements: local ones, and linear ones as far
/// as frameAlong follows their curves. Nothing where the element has none, or the chain is broken, circular, or holds
/// another kind of placement.
std::optional<Frame> placementOf(GeometryReader& reader, step::Slot element);
std::optional<Frame> placementOf(Workspace& work, step::Slot element);

}  // namespace model::ifc
