#include "tables/Workbooks.hpp"

#include <gtest/gtest.h>

namespace tables {
namespace {

const std::string D = Door;
const std::string W = Window;
const std::string Both = D + " A 1->2\n" + W + " B 3->4\n";

TEST(LongList, OfFourColumnsHasTheOldValue) {
    EXPECT_EQ(askedOf(D + ",A,1,2\n" + W + ",B,3,4\n", "a.csv"), Both);
}

TEST(LongList, OfThreeColumnsHasNone) {
    EXPECT_EQ(askedOf(D + ";A;2\n" + WindowGlobalId + ";B;4,5\n", "a.csv"),
              D + " A (none)->2\n" + W + " B (none)->4,5\n");
}

TEST(LongList, IsReadByTheNamesOfItsHeader) {
    EXPECT_EQ(askedOf("new,item,OLD,GlobalId\n2,A,1," + D + "\n4,B,3," + W + "\n", "a.csv"), Both);
    EXPECT_EQ(askedOf("GUID,Item,Old,New\n" + D + ",A,1,2\n" + W + ",B,3,4\n", "a.csv"), Both);
    EXPECT_EQ(askedOf("Item,New,GUID\nA,2," + D + "\n", "a.csv"), D + " A (none)->2\n");
}

TEST(LongList, WithAnotherHeaderIsReadByPlaceAndSaysSo) {
    EXPECT_EQ(askedOf("Bauteil,Was,Alt,Neu\n" + D + ",A,1,2\n", "a.csv"),
              D + " A 1->2\nLine 1 begins with 'Bauteil' and no GUID: it was taken for a header\n");
}

TEST(LongList, WithoutASingleOldValueKnowsNone) {
    EXPECT_EQ(askedOf(D + ",A,,2\n" + W + ",B,,4\n", "a.csv"), D + " A (none)->2\n" + W + " B (none)->4\n");
    EXPECT_EQ(askedOf(D + ",A,,2\n" + W + ",B,3,4\n", "a.csv"), D + " A ->2\n" + W + " B 3->4\n");
}

TEST(LongList, AsksForNothingWhereOldAndNewAreTheSame) {
    EXPECT_EQ(askedOf(D + ",A,1,1\n" + W + ",B,3,4\n", "a.csv"), W + " B 3->4\n");
}

TEST(LongList, TellsOfLinesThatAskForNothing) {
    EXPECT_EQ(
        askedOf(D + ",A,1,\n" + W + ",,3,4\nx,B,3,4\n,B,3,4\n", "a.csv"),
        "line 1 New: the new value is empty; with --clear-empty that asks for the empty text\n"
        "line 2 Item: the line names no item\nline 3 GUID: 'x' is no GUID of 36 characters and no GlobalId of 22\n"
        "line 4 GUID: the line has no GUID\n");
}

TEST(LongList, ClearsWhereAsked) {
    AskOptions options;
    options.clearEmpty = true;
    EXPECT_EQ(askedOf(D + ",A,1,\n", "a.csv", options), D + " A 1->\n");
}

TEST(LongList, OfWhichEveryNewValueIsEmptyIsStillOneOfFourColumns) {
    EXPECT_EQ(askedOf(D + ",A,1,\n" + W + ",B,3,\n", "a.csv"),
              "line 1 New: the new value is empty; with --clear-empty that asks for the empty text\n"
              "line 2 New: the new value is empty; with --clear-empty that asks for the empty text\n");
}

TEST(LongList, TellsOfCellsBehindItsColumns) {
    EXPECT_EQ(askedOf("GUID,Item,New\n" + D + ",A,2,note\n", "a.csv"),
              D + " A (none)->2\nline 2 column 4: the column has no name in the first line\n");
}

TEST(LongList, LeavesOutBothOfTwoDifferentValues) {
    EXPECT_EQ(askedOf(D + ",A,2\n" + D + ",A,3\n" + D + ",B,3\n", "a.csv"),
              D + " B (none)->3\nline 1 New: line 2 asks for another value of the same item; keep one of the two\n"
                  "line 2 New: line 1 asks for another value of the same item; keep one of the two\n");
}

TEST(LongList, OfTheAddOnIsReadTheSame) {
    EXPECT_EQ(askedOf(D + "\tA[B C]\t1\t2, 3; \"4\"\n", "a.tsv"), D + " A[B C] 1->2, 3; \"4\"\n");
}

}  // namespace
}  // namespace tables
