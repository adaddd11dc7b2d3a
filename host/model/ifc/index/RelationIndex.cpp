#include "model/ifc/index/RelationIndex.hpp"

#include "model/ifc/values/InstanceScan.hpp"

namespace model::ifc {

RelationIndex::RelationIndex(Workspace& work, std::string_view relationClass, std::string_view related,
                             std::string_view relating) {
    const Entity* wanted = work.schema.entity(relationClass);
    // IfcRelAdheresToElement is in IFC4X3 only.
    if (wanted == nullptr) return;
    std::vector<step::Slot> objects;
    const auto count = static_cast<step::Slot>(work.file.slotCount());
    for (step::Slot slot = 0; slot < count; ++slot) {
        const Entity* entity = work.classes.of(slot).entity;
        if (entity == nullptr || !entity->isA(*wanted) || !work.file.present(slot)) continue;
        const auto manySide = static_cast<unsigned>(entity->attributeIndex(related));
        // In one pass over a text that may name thousands. Which side comes first differs between the classes.
        const std::uint64_t both =
            argumentBit(entity->attributeIndex(related)) | argumentBit(entity->attributeIndex(relating));
        step::Slot one = step::NoSlot;
        objects.clear();
        forEachReference(work.file.text(slot), both, [&](unsigned argument, std::string_view token) {
            const step::Slot target = work.file.find(tokenId(token));
            if (target == step::NoSlot) return true;
            if (argument == manySide) {
                objects.push_back(target);
            } else if (one == step::NoSlot) {
                one = target;
            }
            return true;
        });
        if (one == step::NoSlot) continue;
        // The first relation in the file counts.
        for (const step::Slot object : objects) relatingOf_.try_emplace(object, one);
    }
}

step::Slot RelationIndex::find(step::Slot object) const {
    const auto found = relatingOf_.find(object);
    return found == relatingOf_.end() ? step::NoSlot : found->second;
}

}  // namespace model::ifc
