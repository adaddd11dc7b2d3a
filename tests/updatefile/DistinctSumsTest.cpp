#include "updatefile/DistinctSums.hpp"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace {

using updatefile::DistinctSums;

TEST(DistinctSums, KnowEachOfManyAgainWhereverItStands) {
    DistinctSums sums;
    std::set<std::uint64_t> added;
    std::mt19937_64 random(1);
    for (int i = 0; i < 100'000; ++i) {
        // Half of the sums come again; so do their neighbours, which stand beside them.
        const std::uint64_t sum = i % 2 == 0 ? random() : *added.begin() + random() % 1000;
        ASSERT_EQ(sums.add(sum), added.insert(sum).second) << i;
    }
    for (const std::uint64_t sum : added) ASSERT_FALSE(sums.add(sum)) << sum;
}

TEST(DistinctSums, KnowThoseApartThatDifferInTheirHighestBitsOnly) {
    DistinctSums sums;
    for (std::uint64_t i = 1; i <= 1000; ++i) ASSERT_TRUE(sums.add(i << 54U));
    for (std::uint64_t i = 1; i <= 1000; ++i) ASSERT_FALSE(sums.add(i << 54U));
}

TEST(DistinctSums, KnowASumThatIsNothing) {
    DistinctSums sums;
    EXPECT_TRUE(sums.add(0));
    EXPECT_FALSE(sums.add(0));
}

}  // namespace
