#include "model/ifc/data/ClassificationData.hpp"

#include <set>
#include <string_view>

namespace model::ifc {

void forEachAssigned(Workspace& work, step::Slot object,
                     const std::function<void(const AssignedClassification&)>& visit) {
    work.forEachRelation(object, Role::AssociatesClassification, [&](step::Slot relation) {
        if (const AssignedClassification* assigned = work.classifications.of(relation)) visit(*assigned);
        return true;
    });
}

void forEachClassification(Workspace& work, step::Slot element,
                           const std::function<void(const ClassificationReference&)>& visit) {
    work.classifications.trim(element);
    const step::Slot type = work.typeObject(element);
    std::set<std::u16string_view> ownLabels;
    forEachAssigned(work, element, [&](const AssignedClassification& own) {
        // Remembered only where there is a type, which might give the same label again.
        if (type != step::NoSlot) ownLabels.insert(own.data.system);
        visit(own.data);
    });
    if (type == step::NoSlot) return;
    forEachAssigned(work, type, [&](const AssignedClassification& inherited) {
        if (!ownLabels.contains(inherited.data.system)) visit(inherited.data);
    });
}

}  // namespace model::ifc
