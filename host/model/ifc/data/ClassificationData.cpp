#include "model/ifc/data/ClassificationData.hpp"

#include "model/ifc/values/InstanceScan.hpp"
#include "model/step/syntax/StringDecoder.hpp"

#include <algorithm>
#include <set>
#include <tuple>
#include <unordered_map>

namespace model::ifc {

namespace {

using step::Slot;

std::optional<std::u16string> optionalText(const step::Instance& instance, const Class& cls, Field field) {
    const step::Value value = argument(instance, cls, field);
    if (value.kind != step::ValueKind::String) return std::nullopt;
    return stringArgument(instance, cls, field);
}

/// The classifications at the end of chains of referenced sources; NoSlot where there is none. Each link is followed
/// once, since many references may hang on one long chain.
class ChainEnds {
public:
    explicit ChainEnds(Workspace& workspace) : work_(workspace) {}

    Slot of(Slot reference) {
        std::vector<Slot> passed;
        Slot current = reference;
        auto known = ends_.end();
        while (current != step::NoSlot && work_.classes.of(current).role == Role::ClassificationReference) {
            // NoSlot until the end is known: where the chain runs in a circle, there is none.
            bool isNew = false;
            std::tie(known, isNew) = ends_.emplace(current, step::NoSlot);
            if (!isNew) break;
            passed.push_back(current);
            current = sourceOf(current);
            known = ends_.end();
        }
        Slot end = known != ends_.end() ? known->second : current;
        if (end != step::NoSlot && work_.classes.of(end).role != Role::Classification) end = step::NoSlot;
        for (const Slot slot : passed) ends_[slot] = end;
        return end;
    }

private:
    Slot sourceOf(Slot reference) {
        step::Instance instance;
        if (!work_.file.read(reference, instance)) return step::NoSlot;
        const auto source = argument(instance, work_.classes.of(reference), Field::ReferencedSource);
        return work_.file.find(step::referenceId(source));
    }

    Workspace& work_;
    std::unordered_map<Slot, Slot> ends_;
};

/// The relation's Name, read without the thousands of elements that may follow it.
std::u16string labelOf(Workspace& work, Slot relation) {
    const LongRelation* known = work.longRelations.find(relation);
    const auto name = known != nullptr ? std::string_view(known->name)
                                       : leadingString(work.file.text(relation),
                                                       work.classes.of(relation).attributeIndex(Field::Name));
    std::u16string label;
    if (!name.empty()) step::decodeString(name, label);
    return label;
}

void readReference(Workspace& work, ChainEnds& ends, AssignedClassification& assigned) {
    const Class& cls = work.classes.of(assigned.reference);
    step::Instance instance;
    if (cls.role == Role::ClassificationReference && work.file.read(assigned.reference, instance)) {
        assigned.data.location = optionalText(instance, cls, Field::Location);
        assigned.data.itemReference = optionalText(instance, cls, Field::ItemReference);
        assigned.data.name = optionalText(instance, cls, Field::Name);
    }
    assigned.classification = ends.of(assigned.reference);
    if (assigned.classification == step::NoSlot) return;
    readClassification(work.file, work.classes, assigned.classification, assigned.data);
}

}  // namespace

std::vector<AssignedClassification> assignedClassifications(Workspace& work, Slot object) {
    std::vector<AssignedClassification> result;
    ChainEnds ends(work);
    work.forEachRelation(object, Role::AssociatesClassification, [&](Slot relation) {
        const Slot reference = work.forwardReferences.first(relation, Field::Relating);
        if (reference == step::NoSlot) return true;
        const Role role = work.classes.of(reference).role;
        if (role != Role::ClassificationReference && role != Role::Classification) return true;
        AssignedClassification assigned{relation, reference, step::NoSlot, {}};
        readReference(work, ends, assigned);
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
    std::set<std::u16string> ownLabels;
    for (const ClassificationReference& own : references) ownLabels.insert(own.system);
    for (auto& inherited : assignedClassifications(work, type)) {
        if (!ownLabels.contains(inherited.data.system)) references.push_back(std::move(inherited.data));
    }
    return references;
}

}  // namespace model::ifc
