#pragma once
// From ids to slots.

#include "model/step/disk/Region.hpp"
#include "model/step/index/Slot.hpp"
#include "model/step/syntax/Value.hpp"

#include <vector>

namespace model::step {

/// Ids of real files are nearly dense, so that those up to a limit index a table whose unused pages cost nothing. The
/// limit grows with the file, which bounds what scattered ids can cost: "#18446744073709551615=A();" alone must not ask
/// for a table of that length. Ids beyond it go into a sorted list. A hash table was slower at opening by far.
class IdTable {
public:
    IdTable() = default;
    /// @param fileSize  in bytes. No instance is shorter than 8 of them ("#1=A();" and a line end), so that a file with
    ///                  ids counted from 1 has them all in the table.
    explicit IdTable(std::uint64_t fileSize) : table_(static_cast<std::size_t>(fileSize / 8 + 64) * sizeof(Slot)) {
        limit_ = table_.size() / sizeof(Slot);
    }

    /// Slots are added in order. After finish() nothing more is.
    void add(InstanceId id, Slot slot) {
        if (id >= limit_) {
            high_.push_back({id, slot});
            return;
        }
        Slot& entry = low()[id];
        if (entry == 0) {
            entry = slot + 1;
        } else {
            entry = Ambiguous;
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
    /// In the table, of an id that several instances have: none of them can be named by it.
    static constexpr Slot Ambiguous = 0xFFFFFFFFU;

    Slot* low() { return static_cast<Slot*>(static_cast<void*>(table_.data())); }
    const Slot* low() const { return static_cast<const Slot*>(static_cast<const void*>(table_.data())); }

    Region table_;  ///< By id: slot + 1, 0 where the id is not used.
    InstanceId limit_ = 0;
    std::vector<High> high_;
    std::vector<Slot> repeated_;
};

}  // namespace model::step
