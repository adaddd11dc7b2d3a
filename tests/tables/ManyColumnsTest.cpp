// Tables of many columns of which the lines fill few: small files that claim a lot.

#include "support/Stopwatch.hpp"
#include "tables/Workbooks.hpp"

#include <gtest/gtest.h>

namespace tables {
namespace {

/// "GUID,Item 0,Item 1": the name of each column between `before` and `behind`.
std::string header(int columns, const std::string& before = "", const std::string& behind = "") {
    std::string line = "GUID";
    for (int i = 0; i < columns; ++i) line += "," + before + "Item " + std::to_string(i) + behind;
    return line + "\n";
}

TEST(ManyColumns, CostNothingWhereALineFillsNoneOfThem) {
    std::string table = header(16'000);
    for (int i = 0; i < 60'000; ++i) table += std::string(Door) + "\n";
    table += std::string(Window) + ",a" + std::string(15'998, ',') + ",b\n";
    const testing_support::Stopwatch watch;
    EXPECT_EQ(askedOf(table, "a.csv"), std::string(Window) + " Item 0 (none)->a\n" + Window +
                                           " Item 15999 (none)->b\n59999 lines with the GUID of a line above, the "
                                           "first is line 3\n");
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
}

/// Of a name with blanks around it the model is asked whether it is meant so.
TEST(ManyColumns, AreAskedAboutWhereALineFillsThem) {
    const std::string table =
        header(100, " ", " ") + Door + ",,a\n" + Window + "\n" + Door + std::string(100, ',') + "b\n";
    for (const bool clearEmpty : {false, true}) {
        int calls = 0;
        AskOptions options;
        options.clearEmpty = clearEmpty;
        options.current = [&](std::string_view, std::string_view) {
            ++calls;
            return std::nullopt;
        };
        const auto asked = findUpdates(*readBytes(table, "a.csv"), "a.csv", options);
        ASSERT_TRUE(asked);
        EXPECT_EQ(asked->updates.size(), 2U);
        EXPECT_EQ(asked->updates.front().item, "Item 1");
        EXPECT_EQ(asked->updates.back().item, "Item 99");
        // Whether the written name is one, and what the trimmed one holds.
        EXPECT_EQ(calls, clearEmpty ? 2 * 300 : 2 * 2);
    }
}

}  // namespace
}  // namespace tables
