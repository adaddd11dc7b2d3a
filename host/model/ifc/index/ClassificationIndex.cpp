#include "model/ifc/index/ClassificationIndex.hpp"

#include "model/ifc/index/PropertySets.hpp"

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
    : file_(stepFile), classes_(knownClasses) {}

step::Slot ClassificationIndex::find(const ClassificationReference& wanted) {
    // Nothing here is forgotten: no edit changes an IfcClassification, and new ones come at the end of the slots.
    for (; seen_ < file_.slotCount(); ++seen_) {
        if (classes_.of(seen_).role != Role::Classification || file_.find(file_.id(seen_)) != seen_) continue;
        ClassificationReference data;
        if (readClassification(file_, classes_, seen_, data)) slots_[keyOf(data)].push_back(seen_);
    }
    const auto found = slots_.find(keyOf(wanted));
    if (found == slots_.end()) return step::NoSlot;
    const auto present =
        std::find_if(found->second.begin(), found->second.end(), [&](step::Slot slot) { return file_.present(slot); });
    return present == found->second.end() ? step::NoSlot : *present;
}

std::u16string ClassificationIndex::keyOf(const ClassificationReference& data) {
    // A noncharacter keeps the parts apart: no text of a file ends with one.
    constexpr char16_t Between = 0xFFFF;
    return data.source + Between + data.edition + Between + data.classificationName;
}

}  // namespace model::ifc
