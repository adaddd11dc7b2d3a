#include "model/ifc/ClassificationIndex.hpp"

#include "model/ifc/PropertySets.hpp"

#include <algorithm>

namespace model::ifc {

bool readClassification(const step::StepFile& file, Classes& classes, step::Slot classification,
                        ClassificationReference& out) {
    const Class& cls = classes.of(classification);
    step::Instance instance;
    if (cls.role != Role::Classification || !file.read(classification, instance)) return false;
    out.source = stringArgument(instance, cls, Field::Source);
    out.edition = stringArgument(instance, cls, Field::Edition);
    out.classificationName = stringArgument(instance, cls, Field::Name);
    return true;
}

ClassificationIndex::ClassificationIndex(const step::StepFile& stepFile, Classes& knownClasses)
    : file(stepFile), classes(knownClasses) {}

step::Slot ClassificationIndex::find(const ClassificationReference& wanted) {
    for (; seen < file.instanceCount(); ++seen) {
        if (classes.of(seen).role != Role::Classification || file.find(file.id(seen)) != seen) continue;
        ClassificationReference data;
        if (readClassification(file, classes, seen, data)) slots[keyOf(data)].push_back(seen);
    }
    const auto found = slots.find(keyOf(wanted));
    if (found == slots.end()) return step::NoSlot;
    const auto present =
        std::find_if(found->second.begin(), found->second.end(), [&](step::Slot slot) { return file.present(slot); });
    return present == found->second.end() ? step::NoSlot : *present;
}

std::u16string ClassificationIndex::keyOf(const ClassificationReference& data) {
    // A noncharacter keeps the parts apart: no text of a file ends with one.
    constexpr char16_t Between = 0xFFFF;
    return data.source + Between + data.edition + Between + data.classificationName;
}

}  // namespace model::ifc
