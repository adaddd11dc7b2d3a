#include "importing/Refusals.hpp"

#include "support/IfcText.hpp"
#include "support/Stopwatch.hpp"

#include <gmock/gmock.h>

namespace importing {
namespace {

using ::testing::ElementsAre;
using testing_support::guidText;

std::string refusal(unsigned element, const std::string& item, const std::string& reason) {
    return "Wall (outer) 12 (" + guidText(element) + "), " + item + ": " + reason + " (APIERR_BADVALUE)";
}

TEST(Refusals, AreFoundByElementAndNameWithASetOrWithout) {
    Refusals refusals({"Said besides.", refusal(1, "Slope[Pset_A]", "first"), refusal(1, "Slope", "second"),
                       refusal(2, "Slope[Pset_A]", "other: element"), refusal(1, "Slopes", "longer name"),
                       refusal(1, "A: B", "with a colon"), "Noted. (APIERR_GENERAL)"});
    EXPECT_THAT(refusals.others(), ElementsAre("Said besides."));
    EXPECT_EQ(refusals.reasonFor(guidText(1), "Slope"), "first");
    EXPECT_EQ(refusals.reasonFor(guidText(1), "Slope[Other]"), "first");
    EXPECT_EQ(refusals.reasonFor(guidText(2), "Slope[A]"), "other: element");
    EXPECT_EQ(refusals.reasonFor(guidText(1), "Slopes"), "longer name");
    EXPECT_EQ(refusals.reasonFor(guidText(1), "A: B"), "with a colon");
    EXPECT_EQ(refusals.reasonFor(guidText(1), "A"), "B: with a colon");
    EXPECT_EQ(refusals.reasonFor(guidText(1), "Slop"), "");
    EXPECT_EQ(refusals.reasonFor(guidText(2), "Slopes"), "");
    EXPECT_EQ(refusals.reasonFor(guidText(3), "Slope"), "");
}

TEST(Refusals, OfOneNameTheFirstInTheReportCounts) {
    Refusals refusals({refusal(1, "Slope", "z"), refusal(1, "Slope[Pset_B]", "b"), refusal(1, "Slope[Pset_A]", "a")});
    EXPECT_EQ(refusals.reasonFor(guidText(1), "Slope[A]"), "z");
    Refusals reversed({refusal(1, "Slope[Pset_B]", "b"), refusal(1, "Slope[Pset_A]", "a"), refusal(1, "Slope", "z")});
    EXPECT_EQ(reversed.reasonFor(guidText(1), "Slope"), "b");
}

/// Looking through all refusals of the element for each row would take minutes.
TEST(Refusals, OfThousandsOfRowsAboutOneElementAreFoundFast) {
    constexpr int Many = 150'000;
    std::vector<std::string> report;
    for (int i = 0; i < Many; ++i) report.push_back(refusal(1, "Item " + std::to_string(i), std::to_string(i)));
    for (int i = 0; i < Many; ++i) report.push_back(refusal(1, "Same", std::to_string(i)));
    const testing_support::Stopwatch watch;
    Refusals refusals(report);
    int right = 0;
    for (int i = 0; i < Many; ++i) {
        right += refusals.reasonFor(guidText(1), "Item " + std::to_string(i)) == std::to_string(i);
        right += refusals.reasonFor(guidText(1), "Same[A]") == "0";
    }
    EXPECT_EQ(right, 2 * Many);
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
}

}  // namespace
}  // namespace importing
