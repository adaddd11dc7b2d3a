#include "model/step/index/IdTable.hpp"

#include <algorithm>

namespace model::step {

void IdTable::finish() {
    std::sort(high_.begin(), high_.end(),
              [](const High& a, const High& b) { return a.id != b.id ? a.id < b.id : a.slot < b.slot; });
    for (std::size_t i = 1; i < high_.size(); ++i)
        if (high_[i].id == high_[i - 1].id) repeated_.push_back(high_[i].slot);
    std::sort(repeated_.begin(), repeated_.end());
}

Slot IdTable::find(InstanceId id) const {
    if (id < limit_) {
        // Zero is what fresh memory holds, so that setting up the table touches no page of it: hence slot + 1.
        const Slot entry = low()[id];
        return entry == 0 || entry == Ambiguous ? NoSlot : entry - 1;
    }
    const auto at =
        std::lower_bound(high_.begin(), high_.end(), id, [](const High& a, InstanceId b) { return a.id < b; });
    if (at == high_.end() || at->id != id) return NoSlot;
    const auto next = at + 1;
    return next != high_.end() && next->id == id ? NoSlot : at->slot;
}

}  // namespace model::step
