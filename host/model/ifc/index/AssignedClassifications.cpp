#include "model/ifc/index/AssignedClassifications.hpp"

#include "model/ifc/index/ClassificationIndex.hpp"
#include "model/ifc/index/PropertySets.hpp"
#include "model/ifc/values/InstanceScan.hpp"
#include "model/step/syntax/StringDecoder.hpp"

#include <utility>

namespace model::ifc {

namespace {

using step::Slot;

std::optional<std::u16string> optionalText(const step::Instance& instance, const Class& cls, Field field) {
    const step::Value value = argument(instance, cls, field);
    if (value.kind != step::ValueKind::String) return std::nullopt;
    return stringArgument(instance, cls, field);
}

std::size_t bytesOf(const AssignedClassification& assigned) {
    const ClassificationReference& data = assigned.data;
    const auto length = [](const std::optional<std::u16string>& text) { return text ? text->size() : 0; };
    return sizeof(assigned) +
           2 * (data.system.size() + length(data.location) + length(data.name) + length(data.itemReference) +
                data.source.size() + data.edition.size() + data.classificationName.size());
}

}  // namespace

AssignedClassifications::AssignedClassifications(const step::StepFile& stepFile, Classes& knownClasses,
                                                 ForwardReferences& forward, LongRelations& relations)
    : file_(stepFile),
      classes_(knownClasses),
      forwardReferences_(forward),
      longRelations_(relations),
      // As for property sets: a part of the file's size.
      byteLimit_((std::size_t{4} << 20U) + file_.byteCount() / 8) {}

const AssignedClassification* AssignedClassifications::of(Slot relation) {
    auto found = known_.find(relation);
    if (found == known_.end()) {
        found = known_.emplace(relation, decode(relation)).first;
        knownBytes_ += bytesOf(found->second);
    }
    return found->second.reference == step::NoSlot ? nullptr : &found->second;
}

/// What one object needs may be more than the bound: to drop that with each line about it would be to read all of it
/// anew with each.
void AssignedClassifications::trim(Slot object) {
    if (knownBytes_ > byteLimit_ && object != lastObject_) forgetAll();
    lastObject_ = object;
}

void AssignedClassifications::forgetAll() noexcept {
    // Not clear(): it passes over as many buckets as there ever were.
    std::exchange(known_, {});
    std::exchange(ends_, {});
    std::exchange(sources_, {});
    knownBytes_ = 0;
}

void AssignedClassifications::drop(Slot relation) {
    const auto found = known_.find(relation);
    if (found == known_.end()) return;
    knownBytes_ -= bytesOf(found->second);
    known_.erase(found);
}

void AssignedClassifications::beforeChange(Slot slot, InverseReferences& inverseReferences) {
    if (known_.empty() && ends_.empty()) return;
    const Role role = classes_.of(slot).role;
    if (role == Role::AssociatesClassification) drop(slot);
    if (role != Role::ClassificationReference && role != Role::Classification) return;
    if (sources_.contains(slot)) return forgetAll();
    ends_.erase(slot);
    inverseReferences.forEachUse(slot, [&](const Use& use) {
        drop(use.user);
        return true;
    });
}

AssignedClassification AssignedClassifications::decode(Slot relation) {
    AssignedClassification assigned;
    const Slot reference = forwardReferences_.first(relation, Field::Relating);
    if (reference == step::NoSlot) return assigned;
    const Role role = classes_.of(reference).role;
    if (role != Role::ClassificationReference && role != Role::Classification) return assigned;
    assigned.relation = relation;
    assigned.reference = reference;
    readReference(assigned);
    assigned.data.system = labelOf(relation);
    if (assigned.data.system.empty()) assigned.data.system = assigned.data.classificationName;
    return assigned;
}

void AssignedClassifications::readReference(AssignedClassification& assigned) {
    const Class& cls = classes_.of(assigned.reference);
    step::Instance instance;
    if (cls.role == Role::Classification) sources_.insert(assigned.reference);
    if (cls.role == Role::ClassificationReference && file_.read(assigned.reference, instance)) {
        assigned.data.location = optionalText(instance, cls, Field::Location);
        assigned.data.itemReference = optionalText(instance, cls, Field::ItemReference);
        assigned.data.name = optionalText(instance, cls, Field::Name);
    }
    assigned.classification = endOf(assigned.reference);
    if (assigned.classification == step::NoSlot) return;
    readClassification(file_, classes_, assigned.classification, assigned.data);
}

/// The relation's Name, read without the thousands of elements that may follow it.
std::u16string AssignedClassifications::labelOf(Slot relation) const {
    const LongRelation* known = longRelations_.find(relation);
    const auto name = known != nullptr
                          ? std::string_view(known->name)
                          : leadingString(file_.text(relation), classes_.of(relation).attributeIndex(Field::Name));
    std::u16string label;
    if (!name.empty()) step::decodeString(name, label);
    return label;
}

Slot AssignedClassifications::sourceOf(Slot reference) const {
    step::Instance instance;
    if (!file_.read(reference, instance)) return step::NoSlot;
    const auto source = argument(instance, classes_.of(reference), Field::ReferencedSource);
    return file_.find(step::referenceId(source));
}

Slot AssignedClassifications::endOf(Slot reference) {
    std::unordered_set<Slot> passed;
    Slot end = reference;
    auto known = ends_.find(end);
    while (known == ends_.end() && end != step::NoSlot && classes_.of(end).role == Role::ClassificationReference) {
        // Where the chain runs in a circle, there is none.
        end = passed.insert(end).second ? sourceOf(end) : step::NoSlot;
        if (end != step::NoSlot) sources_.insert(end);
        known = ends_.find(end);
    }
    if (known != ends_.end()) end = known->second;
    if (end != step::NoSlot && classes_.of(end).role != Role::Classification) end = step::NoSlot;
    // Only now: memory may run out on the way, and what is kept has to be right.
    for (const Slot slot : passed) ends_.emplace(slot, end);
    return end;
}

}  // namespace model::ifc
