#include "tables/Workbooks.hpp"

#include <gtest/gtest.h>

#include <map>

namespace tables {
namespace {

const std::string D = Door;
const std::string W = Window;

/// A model that holds these values.
AskOptions holding(std::map<std::pair<std::string, std::string>, std::string> values, bool clearEmpty = false) {
    AskOptions options;
    options.clearEmpty = clearEmpty;
    options.current = [values](std::string_view guid, std::string_view item) -> std::optional<std::string> {
        const auto found = values.find({std::string(guid), std::string(item)});
        return found == values.end() ? std::nullopt : std::optional(found->second);
    };
    return options;
}

std::string grid(const std::string& lines) {
    return "GUID,#Name,FireRating[DoorCommon],Width\n" + lines;
}

TEST(Grid, AsksForEachCellThatHoldsSomething) {
    EXPECT_EQ(askedOf(grid(D + ",Front,T 30,\n" + W + ",,,1.2\n"), "a.csv"),
              D + " FireRating[DoorCommon] (none)->T 30\n" + W + " Width (none)->1.2\n");
}

TEST(Grid, TakesGuidsInAllTheirForms) {
    EXPECT_EQ(askedOf("GlobalId,A\n{4b77f0f7-86aa-47af-8ec8-2d488f3ba8d9},1\n " + std::string(WindowGlobalId) + " ,2\n",
                      "a.csv"),
              D + " A (none)->1\n" + W + " A (none)->2\n");
}

TEST(Grid, LeavesOutWhatTheModelHoldsAlready) {
    const auto read = readBytes(grid(D + ",x,T 30,0.9\n" + W + ",x,F 90,\n"), "doors.csv");
    const auto asked =
        findUpdates(*read, "doors.csv", holding({{{D, "FireRating[DoorCommon]"}, "T 30"}, {{D, "Width"}, "0.8"}}));
    ASSERT_TRUE(asked);
    EXPECT_EQ(asked->unchanged, 1U);
    EXPECT_EQ(asked->updates.size(), 2U);
    EXPECT_EQ(asked->updates[0].line, 2U);
    EXPECT_EQ(asked->updates[0].column, "Width");
    EXPECT_EQ(asked->updates[1].line, 3U);
    EXPECT_EQ(asked->updates[1].column, "FireRating[DoorCommon]");
}

TEST(Grid, TakesARealOfTheSameValueForUnchanged) {
    const auto options = holding({{{D, "Width"}, "9.500000"}, {{W, "Width"}, "0.123457"}});
    EXPECT_EQ(askedOf(grid(D + ",,,9.5\n"), "a.csv", options), "");
    EXPECT_EQ(askedOf(grid(D + ",,,9.50\n"), "a.csv", options), "");
    EXPECT_EQ(askedOf(grid(D + ",,,9.51\n"), "a.csv", options), D + " Width (none)->9.51\n");
    EXPECT_EQ(askedOf(grid(W + ",,,0.1234571\n"), "a.csv", options), W + " Width (none)->0.1234571\n");
    const auto text = holding({{{D, "Width"}, "007"}});
    EXPECT_EQ(askedOf(grid(D + ",,,7\n"), "a.csv", text), D + " Width (none)->7\n");
}

TEST(Grid, ClearsWithEmptyCellsOnlyWhereAsked) {
    const std::map<std::pair<std::string, std::string>, std::string> values{{{D, "Width"}, "0.9"}};
    EXPECT_EQ(askedOf(grid(D + ",x,,\n"), "a.csv", holding(values)), "");
    EXPECT_EQ(askedOf(grid(D + ",x,,\n"), "a.csv", holding(values, true)), D + " Width (none)->\n");
    EXPECT_EQ(askedOf(grid(D + ",x,,  \n"), "a.csv", holding(values, true)), D + " Width (none)->\n");
}

TEST(Grid, TellsOfLinesWithoutGoodGuid) {
    EXPECT_EQ(askedOf(grid(",Sum,,3\n4B77F0F7,x,T 30,\n,,,\n \n" + D + ",,T 30,\n"), "a.csv"),
              D + " FireRating[DoorCommon] (none)->T 30\nline 2 GUID: the line has no GUID\n"
                  "line 3 GUID: '4B77F0F7' is no GUID of 36 characters and no GlobalId of 22\n");
}

TEST(Grid, TellsOfColumnsWithoutName) {
    EXPECT_EQ(askedOf("GUID,,A\n" + D + ",x,1,y\n", "a.csv"),
              D + " A (none)->1\nline 2 column 2: the column has no name in the first line\n"
                  "line 2 column 4: the column has no name in the first line\n");
}

TEST(Grid, TakesAValueThatIsAskedForTwiceOnce) {
    EXPECT_EQ(askedOf("GUID,A,A\n" + D + ",1,1\n" + D + ",1,\n", "a.csv"),
              D + " A (none)->1\nline 2 A: another column asks for the same\nline 3 A: line 2 asks for the same\n"
                  "1 line with the GUID of a line above, the first is line 3\n");
}

TEST(Grid, LeavesOutBothOfTwoDifferentValues) {
    EXPECT_EQ(askedOf("GUID,A,A,B\n" + D + ",1,2,3\n", "a.csv"),
              D + " B (none)->3\nline 2 A: two columns of this name ask for different values; keep one of them\n"
                  "line 2 A: two columns of this name ask for different values; keep one of them\n");
    EXPECT_EQ(askedOf("GUID,A\n" + D + ",1\n" + W + ",1\n" + D + ",2\n", "a.csv"),
              W + " A (none)->1\nline 2 A: line 4 asks for another value of the same item; keep one of the two\n"
                  "line 4 A: line 2 asks for another value of the same item; keep one of the two\n"
                  "1 line with the GUID of a line above, the first is line 4\n");
}

TEST(Grid, TakesTheEditedOneOfTwoLinesOfAnElement) {
    EXPECT_EQ(askedOf("GUID,A\n" + D + ",1\n" + D + ",2\n", "a.csv", holding({{{D, "A"}, "1"}})),
              D + " A (none)->2\n1 line with the GUID of a line above, the first is line 3\n");
}

TEST(Grid, CountsCellsWithTabsAndLineEnds) {
    EXPECT_EQ(askedOf("GUID,\"A\nB\",#C\n" + D + ",\"x\ty\r\nz\",\"a\nb\"\n", "a.csv"),
              D + " A B (none)->x y  z\n2 cells with TABs or line ends: each became a blank\n");
    EXPECT_EQ(askedOf("GUID,A\n" + D + ",\"x\ny\"\n", "a.csv", holding({{{D, "A"}, "x\ny"}})),
              "1 cell with TABs or line ends: each became a blank\n");
}

TEST(Grid, LeavesOutNumbersWithADecimalCommaThatTheModelHasWithAPoint) {
    const auto model = holding({{{D, "Width"}, "1.1"}, {{W, "Width"}, "0.885"}});
    EXPECT_EQ(askedOf("GUID;Width\n" + D + ";1,1\n" + W + ";0,885\n", "a.csv", model), "");
    EXPECT_EQ(askedOf("GUID;Width\n" + D + ";1,1\n" + W + ";0,9\n", "a.csv", model), W + " Width (none)->0,9\n");
    // Nothing but itself shows what the comma is.
    EXPECT_EQ(askedOf("GUID;Width\n" + D + ";1,1\n", "a.csv", model), D + " Width (none)->1,1\n");
}

TEST(Grid, TakesBlanksAtTheEndsOfANameForASlipUnlessTheElementHasAnItemNamedSo) {
    const auto model = holding({{{D, "  Arrow"}, "true"}, {{D, "Name"}, "Door"}});
    EXPECT_EQ(askedOf("GUID,  Arrow, Name \n" + D + ",true,Gate\n", "a.csv", model), D + " Name (none)->Gate\n");
    EXPECT_EQ(askedOf("GUID,  Arrow\n" + D + ",false\n", "a.csv", model), D + "   Arrow (none)->false\n");
    EXPECT_EQ(askedOf(D + ",  Arrow,true,false\n" + D + ", Name ,Door,Gate\n", "a.csv", model),
              D + "   Arrow true->false\n" + D + " Name Door->Gate\n");
}

TEST(Grid, LeavesOutErrorsOfFormulas) {
    EXPECT_EQ(askedOf("GUID,A,B\n" + D + ",#N/A,#REF!\n", "a.csv"),
              "line 2 A: it shows the error '#N/A'; fix the formula, or empty the cell\n"
              "line 2 B: it shows the error '#REF!'; fix the formula, or empty the cell\n");
    const std::string guid = "<c t=\"inlineStr\"><is><t>" + D + "</t></is></c>";
    EXPECT_EQ(
        askedOf(
            xlsxOf("<row r=\"1\"><c t=\"inlineStr\"><is><t>GUID</t></is></c><c t=\"inlineStr\"><is><t>A</t></is></c>"
                   "<c t=\"inlineStr\"><is><t>B</t></is></c></row><row r=\"2\">" +
                   guid + "<c t=\"e\"><v>#NAME?</v></c><c><f>B1</f></c></row>"),
            "a.xlsx"),
        "line 2 A: it shows the error '#NAME?'; fix the formula, or empty the cell\n"
        "line 2 B: its formula has no value yet; open the file in a spreadsheet program and save it\n");
}

TEST(Grid, LeavesOutWhatNoLineCanHold) {
    const std::size_t rest = D.size() + 1 + 3;
    const std::string fits(2047 - rest, 'x');
    EXPECT_EQ(askedOf("GUID,A\n" + D + "," + fits + "\n", "a.csv"), D + " A (none)->" + fits + "\n");
    EXPECT_EQ(askedOf("GUID,A\n" + D + "," + fits + "x\n", "a.csv"),
              "line 2 A: GUID, item and value together are longer than the 2047 bytes of a line; shorten the value\n");
    EXPECT_EQ(askedOf("GUID,A\n" + D + ",a" + std::string(1, '\0') + "b\n", "a.csv"),
              "line 2 A: it holds a zero byte or a line end, which no line can hold; remove it\n");
}

TEST(Grid, KnowsAnEmptyTableFromAWrongOne) {
    EXPECT_EQ(askedOf("GUID,A\n", "a.csv"), "");
    EXPECT_EQ(
        askedOf("Doors,,,,\nGUID,A,B,C,D\n" + D + ",1,2,3,4\n", "a.csv"),
        "a.csv: line 1: the first cell is 'Doors'; write GUID above the elements' GUIDs and an item above each other "
        "column, or save a list of GUID, item, old value, new value");
    EXPECT_EQ(
        askedOf(D + ",1,2,3,4\n", "a.csv"),
        "a.csv: line 1: a list of three or four columns needs no header, but this has 5 columns; write a header line "
        "with GUID and the items' names above");
    EXPECT_EQ(
        askedOf(D + ",1\n", "a.csv"),
        "a.csv: line 1: a list of three or four columns needs no header, but this has 2 columns; write a header line "
        "with GUID and the items' names above");
}

std::string row(std::uint32_t number, std::initializer_list<std::string> texts) {
    std::string cells;
    for (const std::string& text : texts) cells += "<c t=\"inlineStr\"><is><t>" + text + "</t></is></c>";
    return "<row r=\"" + std::to_string(number) + "\">" + cells + "</row>";
}

/// Exported: door T 30, window without a rating. What is asked for is up to the test.
std::string workbook(const std::string& rows) {
    const std::string header = row(1, {"GUID", "#Name", "FireRating"});
    return zipOf(xlsxParts(
        {{"updates", header + rows}, {"exported", header + row(2, {D, "d", "T 30"}) + row(3, {W, "w", ""})}}));
}

TEST(GridOfAnExportedWorkbook, HasTheOldValues) {
    EXPECT_EQ(askedOf(workbook(row(2, {W, "", "F 90"}) + row(3, {D, "", "T 90"})), "a.xlsx"),
              W + " FireRating ->F 90\n" + D + " FireRating T 30->T 90\n");
}

TEST(GridOfAnExportedWorkbook, AsksForNothingWithCellsThatWereNotTouched) {
    const auto changedSince = holding({{{D, "FireRating"}, "T 60"}, {{W, "FireRating"}, "F 60"}}, true);
    EXPECT_EQ(askedOf(workbook(row(2, {D, "", "T 30"}) + row(3, {W, "", ""})), "a.xlsx", changedSince), "");
    EXPECT_EQ(askedOf(workbook(row(2, {D, "", ""})), "a.xlsx", changedSince), D + " FireRating T 30->\n");
}

TEST(GridOfAnExportedWorkbook, KnowsNoOldValueOfWhatWasNotExported) {
    const std::string other = "00000000-86AA-47AF-8EC8-2D488F3BA8D9";
    EXPECT_EQ(askedOf(workbook(row(2, {other, "", "T 90"})), "a.xlsx"), other + " FireRating (none)->T 90\n");
}

}  // namespace
}  // namespace tables
