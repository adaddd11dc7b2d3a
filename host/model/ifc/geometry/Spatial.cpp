#include "model/ifc/geometry/Spatial.hpp"

#include <algorithm>

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

std::vector<Slot> Openings::of(Slot element) {
    if (!known_) {
        const auto count = static_cast<Slot>(work_.file.slotCount());
        for (Slot slot = 0; slot < count; ++slot) {
            step::Instance relation;
            const Class& cls = work_.classes.of(slot);
            if (cls.role != Role::Voids || !work_.file.read(slot, relation)) continue;
            const auto target = [&](Field field) {
                return work_.file.find(step::referenceId(argument(relation, cls, field)));
            };
            all_.emplace_back(target(Field::Relating), target(Field::Related));
        }
        std::stable_sort(all_.begin(), all_.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
        known_ = true;
    }
    std::vector<Slot> openings;
    const auto first = std::lower_bound(all_.begin(), all_.end(), element,
                                        [](const auto& known, Slot wanted) { return known.first < wanted; });
    for (auto at = first; at != all_.end() && at->first == element; ++at) openings.push_back(at->second);
    return openings;
}

}  // namespace model::ifc
