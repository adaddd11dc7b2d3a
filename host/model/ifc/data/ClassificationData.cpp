#include "model/ifc/data/ClassificationData.hpp"

#include "model/ifc/values/InstanceScan.hpp"
#include "model/step/syntax/StringDecoder.hpp"

#include <algorithm>

namespace model::ifc {

namespace {

using step::Slot;

std::optional<std::u16string> optionalText(const step::Instance& instance, const Class& cls, Field field) {
    const step::Value value = argument(instance, cls, field);
    if (value.kind != step::ValueKind::String) return std::nullopt;
    return stringArgument(instance, cls, field);
}

/// The classification at the end of the chain of referenced sources. The chain may run in a circle.
Slot rootOf(Workspace& work, Slot reference) {
    std::vector<Slot> visited;
    step::Instance instance;
    Slot current = reference;
    while (current != step::NoSlot && work.classes.of(current).role == Role::ClassificationReference) {
        if (std::find(visited.begin(), visited.end(), current) != visited.end()) return step::NoSlot;
        visited.push_back(current);
        if (!work.file.read(current, instance)) return step::NoSlot;
        const auto source = argument(instance, work.classes.of(current), Field::ReferencedSource);
        current = work.file.find(step::referenceId(source));
    }
    const bool found = current != step::NoSlot && work.classes.of(current).role == Role::Classification;
    return found ? current : step::NoSlot;
}

/// The relation's Name, read without the thousands of elements that may follow it.
std::u16string labelOf(Workspace& work, Slot relation) {
    const LongRelation* known = work.longRelations.find(relation);
    const auto name = known != nullptr
                          ? std::string_view(known->name)
                          : leadingString(work.file.text(relation), work.classes.of(relation).place(Field::Name));
    std::u16string label;
    if (!name.empty()) step::decodeString(name, label);
    return label;
}

void readReference(Workspace& work, AssignedClassification& assigned) {
    const Class& cls = work.classes.of(assigned.reference);
    step::Instance instance;
    if (cls.role == Role::ClassificationReference && work.file.read(assigned.reference, instance)) {
        assigned.data.location = optionalText(instance, cls, Field::Location);
        assigned.data.itemReference = optionalText(instance, cls, Field::ItemReference);
        assigned.data.name = optionalText(instance, cls, Field::Name);
    }
    assigned.classification = rootOf(work, assigned.reference);
    if (assigned.classification == step::NoSlot) return;
    readClassification(work.file, work.classes, assigned.classification, assigned.data);
}

}  // namespace

std::vector<AssignedClassification> assignedClassifications(Workspace& work, Slot object) {
    std::vector<AssignedClassification> result;
    work.forEachRelation(object, Role::AssociatesClassification, [&](Slot relation) {
        const Slot reference = work.forwardReferences.first(relation, Field::Relating);
        if (reference == step::NoSlot) return true;
        const Role role = work.classes.of(reference).role;
        if (role != Role::ClassificationReference && role != Role::Classification) return true;
        AssignedClassification assigned{relation, reference, step::NoSlot, {}};
        readReference(work, assigned);
        assigned.data.system = labelOf(work, relation);
        if (assigned.data.system.empty()) assigned.data.system = assigned.data.classificationName;
        result.push_back(std::move(assigned));
        return true;
    });
    return result;
}

std::vector<ClassificationReference> readClassifications(Workspace& work, Slot element) {
    std::vector<ClassificationReference> references;
    for (auto& own : assignedClassifications(work, element)) references.push_back(std::move(own.data));
    const Slot type = work.typeObject(element);
    if (type == step::NoSlot) return references;
    const std::size_t ownCount = references.size();
    for (auto& inherited : assignedClassifications(work, type)) {
        const auto end = references.begin() + static_cast<std::ptrdiff_t>(ownCount);
        const bool has = std::any_of(references.begin(), end, [&](const ClassificationReference& own) {
            return own.system == inherited.data.system;
        });
        if (!has) references.push_back(std::move(inherited.data));
    }
    return references;
}

}  // namespace model::ifc
