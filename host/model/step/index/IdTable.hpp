#pragma once
// From ids to slots.

#include "model/step/disk/Region.hpp"
#include "model/step/index/Slot.hpp"
#include "model/step/syntax/Value.hpp"

#include <vector>

namespace model::step {

/// Ids of real files are nearly dense, so that those up to a limit index a table whose unused pages cost nothing. The
/// limit grows with the file, which bounds what scattered ids can cost. Ids beyond it go into a sorted list.
class IdTable {
public:
    IdTable() = default;
    explicit IdTable(std::uint64_t fileSize) : table_(static_cast<std::size_t>(fileSize / 8 + 64) * sizeof(Slot)) {
        limit_ = table_.size() / sizeof(Slot);
    }

    void add(InstanceId id, Slot slot) {
        if (id >= limit_) {
            high_.push_back({id, slot});
            return;
        }
        Slot& entry = low()[id];
        if (entry == 0) {
            entry = slot + 1;
        } else {
            entry = ambiguous;
            repeated_.push_back(slot);
        }
    }

    /// Ends the adding.
    void finish();
    /// The slots that repeat the id of an earlier one, in file order.
    const std::vector<Slot>& duplicates() const { return repeated_; }
    /// NoSlot where there is none, or where there are several.
    Slot find(InstanceId id) const;

private:
    struct High {
        InstanceId id;
        Slot slot;
    };
    static constexpr Slot ambiguous = 0xFFFFFFFFU;

    Slot* low() { return static_cast<Slot*>(static_cast<void*>(table_.data())); }
    const Slot* low() const { return static_cast<const Slot*>(static_cast<const void*>(table_.data())); }

    Region table_;  ///< By id: slot + 1, 0 where the id is not used.
    InstanceId limit_ = 0;
    std::vector<High> high_;
    std::vector<Slot> repeated_;
};

}  // namespace model::step
