#pragma once

#include "model/ifc/geometry/Placement.hpp"

namespace model::ifc {

/// Where an element's geometry is written, and how it lies in the model.
struct ElementGeometry {
    /// What says all of it: the element's own shape, or the representation that it only places, as others do.
    step::Slot source = step::NoSlot;
    /// Those that say most of the shape: the bodies, or all where there are none.
    std::vector<step::Slot> representations;
    Frame frame;
};

/// Nothing where the element has no geometry, or no placement that can be followed.
std::optional<ElementGeometry> geometryOf(GeometryReader& reader, step::Slot element);

/// The representation that an IfcMappedItem shows, and how it lies in the item's coordinates. Nothing for anything
/// else.
struct Mapping {
    step::Slot representation;
    Frame frame;
};
std::optional<Mapping> mappingOf(GeometryReader& reader, step::Slot item);

}  // namespace model::ifc
