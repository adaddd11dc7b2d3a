#include "model/ifc/index/ForwardReferences.hpp"

#include "model/ifc/values/InstanceScan.hpp"

#include <algorithm>

namespace model::ifc {

namespace {

std::uint64_t keyOf(step::Slot slot, Field field) {
    return std::uint64_t{slot} << 8U | static_cast<std::uint64_t>(field);
}

}  // namespace

ForwardReferences::ForwardReferences(const step::StepFile& stepFile, Classes& knownClasses)
    : file_(stepFile), classes_(knownClasses) {}

/// A short text is read faster than its references are looked up, kept and forgotten again.
std::vector<step::Slot> ForwardReferences::of(step::Slot slot, Field field) {
    if (const auto found = known_.find(keyOf(slot, field)); found != known_.end()) return found->second;
    if (file_.text(slot).size() <= ShortText) return read(slot, field);
    return known_.emplace(keyOf(slot, field), read(slot, field)).first->second;
}

step::Slot ForwardReferences::first(step::Slot slot, Field field) {
    const auto slots = of(slot, field);
    return slots.empty() ? step::NoSlot : slots.front();
}

std::vector<step::Slot> ForwardReferences::read(step::Slot slot, Field field) const {
    std::vector<step::Slot> slots;
    const std::uint64_t arguments = argumentBit(classes_.of(slot).attributeIndex(field));
    if (arguments == 0) return slots;
    forEachReference(file_.text(slot), arguments, [&](unsigned, std::string_view token) {
        if (const step::Slot target = file_.find(tokenId(token)); target != step::NoSlot) slots.push_back(target);
        return true;
    });
    return slots;
}

void ForwardReferences::forget(step::Slot slot) {
    // The fields that edits can change. Placement and shape are asked for, too, but never edited.
    for (const Field field :
         {Field::Related, Field::Relating, Field::Overriding, Field::HasPropertySets, Field::HasProperties}) {
        forget(slot, field);
    }
}

void ForwardReferences::forget(step::Slot slot, Field field) {
    known_.erase(keyOf(slot, field));
}

void ForwardReferences::append(step::Slot slot, Field field, step::Slot target) {
    const auto found = known_.find(keyOf(slot, field));
    if (found != known_.end()) found->second.push_back(target);
}

void ForwardReferences::replace(step::Slot slot, Field field, step::Slot from, step::Slot to) {
    const auto found = known_.find(keyOf(slot, field));
    if (found != known_.end()) std::replace(found->second.begin(), found->second.end(), from, to);
}

}  // namespace model::ifc
