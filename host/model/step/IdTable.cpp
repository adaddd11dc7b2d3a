#include "model/step/IdTable.hpp"

#include <algorithm>

namespace model::step {

void IdTable::finish() {
    std::sort(high.begin(), high.end(),
              [](const High& a, const High& b) { return a.id != b.id ? a.id < b.id : a.slot < b.slot; });
    for (std::size_t i = 1; i < high.size(); ++i)
        if (high[i].id == high[i - 1].id) repeated.push_back(high[i].slot);
    std::sort(repeated.begin(), repeated.end());
}

Slot IdTable::find(InstanceId id) const {
    if (id < limit) {
        const Slot entry = low()[id];
        return entry == 0 || entry == ambiguous ? NoSlot : entry - 1;
    }
    const auto at =
        std::lower_bound(high.begin(), high.end(), id, [](const High& a, InstanceId b) { return a.id < b; });
    if (at == high.end() || at->id != id) return NoSlot;
    const auto next = at + 1;
    return next != high.end() && next->id == id ? NoSlot : at->slot;
}

}  // namespace model::step
