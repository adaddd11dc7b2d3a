#include "model/ifc/geometry/Spatial.hpp"

#include <utility>
#include <vector>

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

bool isStorey(Workspace& work, Slot object) {
    const Entity* entity = work.classes.of(object).entity;
    return entity != nullptr && entity->isA("IfcBuildingStorey");
}

}  // namespace

Slot Storeys::of(Slot element) {
    if (std::exchange(revision_, work_.file.revision()) != work_.file.revision()) above_.clear();
    std::vector<Slot> passed;
    Slot storey = step::NoSlot;
    for (Slot current = element;;) {
        // A circle meets its own beginning here, and leads nowhere.
        const auto [known, isNew] = above_.try_emplace(current, step::NoSlot);
        if (!isNew) {
            storey = known->second;
            break;
        }
        passed.push_back(current);
        current = parentOf(work_, current);
        if (current == step::NoSlot) break;
        if (isStorey(work_, current)) {
            storey = current;
            break;
        }
    }
    for (const Slot below : passed) above_[below] = storey;
    return storey;
}

}  // namespace model::ifc
