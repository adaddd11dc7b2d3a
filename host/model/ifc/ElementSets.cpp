#include "model/ifc/ElementSets.hpp"

#include <utility>

namespace model::ifc {

ElementSets::ElementSets(const step::StepFile& stepFile, const PropertySets& sets)
    : file(stepFile), propertySets(sets) {}

const SetsOfElement* ElementSets::find(step::Slot element) {
    constexpr std::size_t Most = 100'000;
    if (revision != file.revision() || generation != propertySets.generation() || known.size() > Most) {
        // Not clear(), nor "= {}", which is the same: they pass over as many buckets as there ever were, with every
        // edit.
        std::exchange(known, Known());
        revision = file.revision();
        generation = propertySets.generation();
    }
    const auto found = known.find(element);
    return found == known.end() ? nullptr : &found->second;
}

const SetsOfElement& ElementSets::keep(step::Slot element, SetsOfElement sets) {
    return known.insert_or_assign(element, std::move(sets)).first->second;
}

}  // namespace model::ifc
