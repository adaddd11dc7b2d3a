#include "model/ifc/index/LongRelations.hpp"

#include "model/ifc/values/InstanceScan.hpp"

#include <algorithm>

namespace model::ifc {

bool isPlainList(step::Value list) {
    std::vector<step::Value> members;
    return step::splitAggregate(list, members) &&
           std::all_of(members.begin(), members.end(), [](const step::Value& member) {
               return member.kind == step::ValueKind::Reference || member.kind == step::ValueKind::Unset;
           });
}

LongRelations::LongRelations(const step::StepFile& stepFile, Classes& knownClasses)
    : file_(stepFile), classes_(knownClasses) {}

/// Short ones are not kept: reading them is faster than to look them up.
LongRelation* LongRelations::of(step::Slot slot) {
    if (classes_.of(slot).attributeIndex(Field::Related) < 0) return nullptr;
    if (LongRelation* relation = find(slot)) return relation;
    return file_.text(slot).size() <= ShortText ? nullptr : &known_.emplace(slot, read(slot)).first->second;
}

LongRelation* LongRelations::find(step::Slot slot) {
    const auto found = known_.find(slot);
    return found == known_.end() ? nullptr : &found->second;
}

LongRelation LongRelations::read(step::Slot slot) {
    LongRelation relation;
    const Class& cls = classes_.of(slot);
    relation.name = leadingString(file_.text(slot), cls.attributeIndex(Field::Name));
    step::Instance instance;
    if (!file_.read(slot, instance) || !isWellFormed(instance)) return relation;
    std::vector<step::Value> members;
    relation.plainList = isPlainList(argument(instance, cls, Field::Related));
    if (step::splitAggregate(argument(instance, cls, Field::Related), members)) {
        relation.namesSeveral = std::any_of(members.begin(), members.end(), [&](const step::Value& member) {
            return step::referenceId(member) != step::referenceId(members.front());
        });
    }
    const auto index = static_cast<std::size_t>(cls.attributeIndex(Field::Related));
    // Each copy made of the frame names one element. With the list in it a copy would be as long as the original.
    if (index < instance.arguments.size()) instance.arguments[index].text = "()";
    relation.frame.emplace(*cls.entity, instance);
    return relation;
}

}  // namespace model::ifc
