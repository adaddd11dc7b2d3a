#pragma once

#include "model/ifc/schema/Classes.hpp"

#include <unordered_map>
#include <vector>

namespace model::ifc {

/// The instances that an argument refers to. Those of long instances are kept once read: the one side of a relation
/// that names thousands of elements is asked for once an element.
class ForwardReferences {
public:
    ForwardReferences(const step::StepFile& file, Classes& classes);

    /// In the order of the file, those inside aggregates and typed values included; dangling references left out.
    std::vector<step::Slot> of(step::Slot slot, Field field);
    /// The first of them; NoSlot where there is none.
    step::Slot first(step::Slot slot, Field field);

    void forget(step::Slot slot);
    void forget(step::Slot slot, Field field);
    void forgetAll() noexcept { known_.clear(); }
    /// Of a reference added to the end of an argument, and no other change.
    void append(step::Slot slot, Field field, step::Slot target);
    /// Of a reference put in the place of another wherever the argument had that, and no other change.
    void replace(step::Slot slot, Field field, step::Slot from, step::Slot to);

private:
    std::vector<step::Slot> read(step::Slot slot, Field field) const;

    const step::StepFile& file_;
    Classes& classes_;
    std::unordered_map<std::uint64_t, std::vector<step::Slot>> known_;
};

}  // namespace model::ifc
