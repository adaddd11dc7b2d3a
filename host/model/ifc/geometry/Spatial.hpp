#pragma once

#include "model/ifc/index/Workspace.hpp"

#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

namespace model::ifc {

/// The storeys that elements stand in. What was found on the way up is kept until the next change: thousands of parts
/// may share one whole, and asking a whole for its parent costs as much as it has parts.
class Storeys {
public:
    explicit Storeys(Workspace& work) : work_(work) {}

    /// The IfcBuildingStorey that the element stands in: up its containment, its aggregates and wholes, the wall of an
    /// opening and the opening that it fills. NoSlot where it stands in none, or goes round in a circle.
    step::Slot of(step::Slot element);

private:
    Workspace& work_;
    std::uint64_t revision_ = 0;
    std::unordered_map<step::Slot, step::Slot> above_;  // by object, a storey itself included
};

/// The openings in elements. Looked up in the file once: no edit makes or moves one.
class Openings {
public:
    explicit Openings(Workspace& work) : work_(work) {}

    /// The IfcOpeningElements (and other features that are taken away) of the element, in file order.
    std::vector<step::Slot> of(step::Slot element);

private:
    Workspace& work_;
    bool known_ = false;
    std::vector<std::pair<step::Slot, step::Slot>> all_;  ///< Element and opening, sorted.
};

}  // namespace model::ifc
