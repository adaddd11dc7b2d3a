#include "model/ifc/index/ElementSets.hpp"

#include <utility>

namespace model::ifc {

ElementSets::ElementSets(const step::StepFile& stepFile, const PropertySets& sets)
    : file_(stepFile), propertySets_(sets) {}

const SetsOfElement* ElementSets::find(step::Slot element) {
    constexpr std::size_t Most = 100'000;
    if (revision_ != file_.revision() || generation_ != propertySets_.generation() || known_.size() > Most) {
        // Not clear(), nor "= {}", which is the same: they pass over as many buckets as there ever were, with every
        // edit.
        std::exchange(known_, Known());
        revision_ = file_.revision();
        generation_ = propertySets_.generation();
    }
    const auto found = known_.find(element);
    return found == known_.end() ? nullptr : &found->second;
}

const SetsOfElement& ElementSets::keep(step::Slot element, SetsOfElement sets) {
    return known_.insert_or_assign(element, std::move(sets)).first->second;
}

}  // namespace model::ifc
