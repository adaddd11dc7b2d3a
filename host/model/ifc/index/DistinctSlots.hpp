#pragma once

#include "model/step/index/Slot.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <unordered_set>

namespace model::ifc {

/// Tells what was there before: a list of a file may name one instance any number of times. Most lists are short, and
/// need no memory of their own for it.
class DistinctSlots {
public:
    /// @return false where it was added before.
    bool add(step::Slot slot) {
        if (!many_.empty()) return many_.insert(slot).second;
        if (std::find(few_.begin(), few_.begin() + count_, slot) != few_.begin() + count_) return false;
        if (count_ < Few) {
            few_[static_cast<std::size_t>(count_++)] = slot;
        } else {
            many_.insert(few_.begin(), few_.end());
            many_.insert(slot);
        }
        return true;
    }

private:
    static constexpr std::ptrdiff_t Few = 16;

    std::array<step::Slot, static_cast<std::size_t>(Few)> few_{};
    std::ptrdiff_t count_ = 0;
    std::unordered_set<step::Slot> many_;  // All of them, once there are more than a few.
};

}  // namespace model::ifc
