#include "model/ifc/index/LongSets.hpp"

#include "model/ifc/index/DistinctSlots.hpp"
#include "model/ifc/index/PropertySets.hpp"
#include "model/ifc/values/InstanceScan.hpp"

namespace model::ifc {

LongSets::LongSets(const step::StepFile& stepFile, Classes& knownClasses) : file_(stepFile), classes_(knownClasses) {}

const LongSet* LongSets::of(step::Slot slot) {
    if (classes_.of(slot).role != Role::PropertySet) return nullptr;
    if (const auto found = known_.find(slot); found != known_.end()) return &found->second;
    return file_.text(slot).size() <= ShortText ? nullptr : &known_.emplace(slot, read(slot)).first->second;
}

LongSet LongSets::read(step::Slot slot) const {
    LongSet set;
    const Class& cls = classes_.of(slot);
    step::Instance instance;
    if (!file_.read(slot, instance) || !isWellFormed(instance)) return set;
    set.wellFormed = true;
    std::vector<step::Value> members;
    const step::Value list = argument(instance, cls, Field::HasProperties);
    set.listed = step::splitAggregate(list, members);
    DistinctSlots seen;
    forEachReferenceIn(list.text, [&](std::string_view token) {
        const step::Slot member = file_.find(tokenId(token));
        if (member == step::NoSlot || !isComplex(member) || !seen.add(member) || !file_.read(member, instance)) {
            return true;
        }
        set.complexProperties.emplace(stringArgument(instance, classes_.of(member), Field::Name), member);
        return true;
    });
    return set;
}

void LongSets::append(step::Slot set, step::Slot property) {
    if (isComplex(property)) known_.erase(set);
}

void LongSets::replace(step::Slot set, step::Slot from, step::Slot to) {
    if (isComplex(from) || isComplex(to)) known_.erase(set);
}

void LongSets::forget(step::Slot slot) {
    // Which sets have it is not kept. No edit changes a complex property.
    if (isComplex(slot)) known_.clear();
    known_.erase(slot);
}

}  // namespace model::ifc
