#include "console/import/TickChoice.hpp"

#include <gtest/gtest.h>

namespace console {
namespace {

using Ranges = std::vector<TickChoice::Range>;

TEST(TickChoice, AllAndNoneNameNoRows) {
    EXPECT_EQ(parseTickChoice("all")->kind, TickChoice::Kind::All);
    EXPECT_EQ(parseTickChoice("none")->kind, TickChoice::Kind::None);
    EXPECT_EQ(parseTickChoice("all")->lastRow(), 0U);
}

struct GoodRow {
    const char* text;
    Ranges ranges;
};

class TickChoiceOfRows : public testing::TestWithParam<GoodRow> {};

TEST_P(TickChoiceOfRows, AreSortedAndNamedOnce) {
    const auto choice = parseTickChoice(GetParam().text);
    ASSERT_TRUE(choice) << choice.error().message;
    EXPECT_EQ(choice->kind, TickChoice::Kind::Rows);
    EXPECT_EQ(choice->ranges, GetParam().ranges) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Texts, TickChoiceOfRows,
                         testing::Values(GoodRow{"1", {{1, 1}}}, GoodRow{"1,4-9", {{1, 1}, {4, 9}}},
                                         GoodRow{"7-7", {{7, 7}}}, GoodRow{"9,2", {{2, 2}, {9, 9}}},
                                         GoodRow{"3,3", {{3, 3}}}, GoodRow{"1-5,2-3,5-8", {{1, 8}}},
                                         GoodRow{"4294967295", {{4294967295U, 4294967295U}}}));

class TickChoiceThatIsNone : public testing::TestWithParam<const char*> {};

TEST_P(TickChoiceThatIsNone, IsRefusedWithItsText) {
    const auto choice = parseTickChoice(GetParam());
    ASSERT_FALSE(choice);
    EXPECT_NE(choice.error().message.find(GetParam()), std::string::npos) << choice.error().message;
    EXPECT_NE(choice.error().message.find("such as 1,4-9"), std::string::npos) << choice.error().message;
}

INSTANTIATE_TEST_SUITE_P(Texts, TickChoiceThatIsNone,
                         testing::Values("", "0", "-1", "1-", "-", "2-1", "1,,2", "1,", ",", "one", "ALL", "1 2", " 1",
                                         "1;2", "+1", "4294967296", "1-2-3", "0x1"));

}  // namespace
}  // namespace console
