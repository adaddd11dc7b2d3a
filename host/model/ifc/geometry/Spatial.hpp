#pragma once

#include "model/ifc/index/Workspace.hpp"

#include <cstdint>
#include <unordered_map>

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

}  // namespace model::ifc
