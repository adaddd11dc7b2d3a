#pragma once

#include "model/ifc/schema/Classes.hpp"

#include <map>
#include <string>
#include <unordered_map>

namespace model::ifc {

/// What stays true of a property set while one property after the other is added to it.
struct LongSet {
    bool wellFormed = false;
    bool listed = false;  ///< Its properties are a list that another one can be added to.
    /// The complex properties by name, of several the first.
    std::map<std::u16string, step::Slot, std::less<>> complexProperties;
};

/// Property sets with many properties. Reading the text of one of these for each that is added would take time with the
/// square of their number.
class LongSets {
public:
    LongSets(const step::StepFile& file, Classes& classes);

    /// Null where the instance is short, or no property set.
    const LongSet* of(step::Slot slot);

    /// Of a property added to the end of a set, and no other change.
    void append(step::Slot set, step::Slot property);
    /// Of a property put in the place of another, and no other change of the set.
    void replace(step::Slot set, step::Slot from, step::Slot to);
    /// Of any change but these.
    void forget(step::Slot slot);
    void forgetAll() noexcept { known_.clear(); }

private:
    bool isComplex(step::Slot property) const { return classes_.of(property).role == Role::ComplexProperty; }
    LongSet read(step::Slot slot) const;

    const step::StepFile& file_;
    Classes& classes_;
    std::unordered_map<step::Slot, LongSet> known_;
};

}  // namespace model::ifc
