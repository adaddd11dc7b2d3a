#include "model/ifc/geometry/Spatial.hpp"

namespace model::ifc {

namespace {

using step::Slot;

/// What the object stands in or is part of; being contained says more than being part.
Slot parentOf(Workspace& work, Slot object) {
    for (const Role role : {Role::Contains, Role::Decomposes, Role::Fills, Role::Voids}) {
        Slot parent = step::NoSlot;
        work.forEachRelation(object, role, [&](Slot relation) {
            parent = work.forwardReferences.first(relation, Field::Relating);
            return parent == step::NoSlot;
        });
        if (parent != step::NoSlot) return parent;
    }
    return step::NoSlot;
}

}  // namespace

Slot storeyOf(Workspace& work, Slot element) {
    // A chain longer than any building is a circle.
    constexpr int Longest = 64;
    Slot current = parentOf(work, element);
    for (int i = 0; i < Longest && current != step::NoSlot; ++i) {
        const Class& cls = work.classes.of(current);
        if (cls.entity != nullptr && cls.entity->isA("IfcBuildingStorey")) return current;
        current = parentOf(work, current);
    }
    return step::NoSlot;
}

}  // namespace model::ifc
