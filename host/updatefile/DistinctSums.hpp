#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace updatefile {

/// Tells what was there before among millions of sums by a key that nobody knows. Their bits are as good as random, so
/// each stands at the place that its lowest bits name, or close behind. (With a hash table of nodes, which lie all over
/// the memory, listing the items of 200,000 elements takes twice as long.)
class DistinctSums {
public:
    /// @return false where it was added before.
    bool add(std::uint64_t sum) {
        if (2 * count_ >= places_.size()) grow();
        const bool isNew = put(sum == Empty ? Empty + 1 : sum);
        if (isNew) ++count_;
        return isNew;
    }

private:
    static constexpr std::uint64_t Empty = 0;
    static constexpr std::size_t Fewest = 8;

    bool put(std::uint64_t sum) {
        const std::size_t mask = places_.size() - 1;
        std::size_t at = sum & mask;
        while (places_[at] != Empty && places_[at] != sum) at = (at + 1) & mask;
        return std::exchange(places_[at], sum) == Empty;
    }

    void grow() {
        const auto before =
            std::exchange(places_, std::vector<std::uint64_t>(places_.empty() ? Fewest : 2 * places_.size()));
        for (const std::uint64_t sum : before)
            if (sum != Empty) put(sum);
    }

    std::vector<std::uint64_t> places_;  ///< A power of two of them, at most half of them taken.
    std::size_t count_ = 0;
};

}  // namespace updatefile
