#pragma once

#include "model/ifc/index/PropertySets.hpp"

#include <unordered_map>
#include <utility>
#include <vector>

namespace model::ifc {

/// The decoded property sets of an element.
struct SetsOfElement {
    std::vector<const DecodedSet*> own;   ///< In file order; a set given twice stands once.
    std::vector<const DecodedSet*> type;  ///< Of its type object.
    /// Properties of the type that the element has itself, as (place in `type`, index in that set), sorted. Not known
    /// where properties are overridden.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> hidden;
    bool overridden = false;  ///< Relations override properties of the sets (IFC2X3): the sets are not all.
};

/// Remembers them as long as nothing changes: an element's lines in an update file come back round after round, and
/// following the relations touches far more memory than the sets themselves.
class ElementSets {
public:
    ElementSets(const step::StepFile& file, const PropertySets& propertySets);

    /// Null where they are not known, or no longer.
    const SetsOfElement* find(step::Slot element);
    const SetsOfElement& keep(step::Slot element, SetsOfElement sets);

private:
    using Known = std::unordered_map<step::Slot, SetsOfElement>;

    const step::StepFile& file_;
    const PropertySets& propertySets_;
    std::uint64_t revision_ = 0;
    std::uint64_t generation_ = 0;
    Known known_;
};

}  // namespace model::ifc
