#include "model/ifc/data/SharedData.hpp"

namespace model::ifc {

std::size_t SharedData::properties(Element element) {
    const step::Slot object = work_.elements.slot(element);
    sources_.clear();
    work_.inverseReferences.forEachUse(object, [&](const Use& use) {
        const Class& cls = work_.classes.of(use.user);
        const bool gives = cls.role == Role::DefinesByProperties || cls.role == Role::OverridesProperties;
        if (gives && cls.attributeIndex(Field::Related) == use.attributeIndex) sources_.push_back(use.user);
        return true;
    });
    return number(properties_, object);
}

std::size_t SharedData::classifications(Element element) {
    const step::Slot object = work_.elements.slot(element);
    sources_.clear();
    work_.forEachRelation(object, Role::AssociatesClassification, [&](step::Slot relation) {
        sources_.push_back(relation);
        return true;
    });
    return number(classifications_, object);
}

std::size_t SharedData::number(std::map<Sources, std::size_t>& numbers, step::Slot object) {
    // Always the last, NoSlot included: else a relation could be taken for a type.
    sources_.push_back(work_.typeObject(object));
    return numbers.try_emplace(sources_, numbers.size()).first->second;
}

}  // namespace model::ifc
