#include "tables/Workbooks.hpp"

#include <gtest/gtest.h>

namespace tables {
namespace {

struct GoodCell {
    const char* what;
    std::string cell;
    std::string shown;
};

void PrintTo(const GoodCell& row, std::ostream* out) {
    *out << row.what;
}

const XlsxOptions Options{
    "<si><t>shared</t></si><si><r><t>two </t></r><r><rPr/><t xml:space=\"preserve\">runs </t></r></si>"
    "<si><t>漢字</t><rPh sb=\"0\" eb=\"2\"><t>かんじ</t></rPh></si><si><t/></si><si><t>bell _x0007_ and "
    "_x005F_x0007_</t></si>",
    "<numFmts><numFmt numFmtId=\"164\" formatCode=\"dd\\.mm\\.yyyy\"/><numFmt numFmtId=\"165\" "
    "formatCode=\"[Red]0.00&quot; days&quot;\"/><numFmt numFmtId=\"166\" formatCode=\"[h]:mm\"/></numFmts>"
    "<cellStyleXfs><xf numFmtId=\"14\"/></cellStyleXfs><cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"14\"/>"
    "<xf numFmtId=\"164\"/><xf numFmtId=\"165\"/><xf numFmtId=\"22\"/><xf numFmtId=\"20\"/><xf "
    "numFmtId=\"166\"/></cellXfs>",
    {}};

class CellOfAnXlsx : public testing::TestWithParam<GoodCell> {};

TEST_P(CellOfAnXlsx, IsReadAsPeopleSeeIt) {
    EXPECT_EQ(shownOf(xlsxOf("<row r=\"1\">" + GetParam().cell + "</row>", Options), "a.xlsx"),
              "1: " + GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Xlsx, CellOfAnXlsx,
    testing::Values(
        GoodCell{"a shared text", R"(<c r="A1" t="s"><v>0</v></c>)", "shared"},
        GoodCell{"a text in several runs", R"(<c r="A1" t="s"><v>1</v></c>)", "two runs "},
        GoodCell{"a text with its reading", R"(<c r="A1" t="s"><v>2</v></c>)", "漢字"},
        GoodCell{"an empty text", R"(<c r="A1" t="s"><v>3</v></c><c r="B1" t="s"><v>0</v></c>)", "| shared"},
        GoodCell{"escapes", R"(<c r="A1" t="s"><v>4</v></c>)", "bell \x07 and _x0007_"},
        GoodCell{"a text of its own", R"(<c r="A1" t="inlineStr"><is><t>own</t></is></c>)", "own"},
        GoodCell{"a number as text", R"(<c r="A1" t="inlineStr"><is><t>007</t></is></c>)", "007"},
        GoodCell{"a whole number", R"(<c r="A1"><v>100000</v></c>)", "100000"},
        GoodCell{"a number as Excel keeps 9.7", R"(<c r="A1"><v>9.6999999999999993</v></c>)", "9.7"},
        GoodCell{"a number with exponent", R"(<c r="A1"><v>1.5E-3</v></c>)", "0.0015"},
        GoodCell{"a large number", R"(<c r="A1"><v>1E+20</v></c>)", "1e+20"},
        GoodCell{"a negative zero", R"(<c r="A1"><v>-0</v></c>)", "0"},
        GoodCell{"true", R"(<c r="A1" t="b"><v>1</v></c>)", "true"},
        GoodCell{"false", R"(<c r="A1" t="b"><v>0</v></c>)", "false"},
        GoodCell{"false by its name", R"(<c r="A1" t="b"><v>false</v></c>)", "false"},
        GoodCell{"an error", R"(<c r="A1" t="e"><v>#N/A</v></c>)", "#N/A"},
        GoodCell{"a formula's number", R"(<c r="A1"><f>1+2</f><v>3</v></c>)", "3"},
        GoodCell{"a formula's text", R"(<c r="A1" t="str"><f>"a"</f><v>a</v></c>)", "a"},
        GoodCell{"a formula's empty text", R"(<c r="A1" t="str"><f>""</f><v></v></c><c r="B1"><v>1</v></c>)", "| 1"},
        GoodCell{"a date", R"(<c r="A1" s="1"><v>45429</v></c>)", "2024-05-17"},
        GoodCell{"a date of a format of its own", R"(<c r="A1" s="2"><v>45429</v></c>)", "2024-05-17"},
        GoodCell{"a date before the leap day that there was not", R"(<c r="A1" s="1"><v>59</v></c>)", "1900-02-28"},
        GoodCell{"a date behind it", R"(<c r="A1" s="1"><v>61</v></c>)", "1900-03-01"},
        GoodCell{"the last date", R"(<c r="A1" s="1"><v>2958465</v></c>)", "9999-12-31"},
        GoodCell{"no date any more", R"(<c r="A1" s="1"><v>2958466</v></c>)", "2958466"},
        GoodCell{"no date yet", R"(<c r="A1" s="1"><v>-1</v></c>)", "-1"},
        GoodCell{"letters in quotes are no date", R"(<c r="A1" s="3"><v>2.5</v></c>)", "2.5"},
        GoodCell{"a date with time", R"(<c r="A1" s="4"><v>45429.354166666664</v></c>)", "2024-05-17T08:30:00"},
        GoodCell{"a midnight", R"(<c r="A1" s="4"><v>45429</v></c>)", "2024-05-17"},
        GoodCell{"a time", R"(<c r="A1" s="5"><v>0.35416666666666669</v></c>)", "08:30:00"},
        GoodCell{"a duration", R"(<c r="A1" s="6"><v>1.5</v></c>)", "36:00:00"},
        GoodCell{"a date as text of ISO", R"(<c r="A1" t="d"><v>2024-05-17T00:00:00</v></c>)", "2024-05-17"},
        GoodCell{"a TAB and a line end", "<c r=\"A1\" t=\"inlineStr\"><is><t>a\tb\nc</t></is></c>", "a b c"},
        GoodCell{"cells without place", R"(<c><v>1</v></c><c><v>2</v></c>)", "1 | 2"},
        GoodCell{"cells in any order", R"(<c r="C1"><v>3</v></c><c r="A1"><v>1</v></c>)", "1 | | 3"},
        GoodCell{"the last column", R"(<c r="A1"><v>1</v></c><c r="E1"><v>2</v></c>)", "1 | | | | 2"}));

TEST(Xlsx, CountsDaysFrom1904WhereTheWorkbookDoes) {
    XlsxOptions options = Options;
    options.settings = "<workbookPr date1904=\"1\"/>";
    EXPECT_EQ(shownOf(xlsxOf(R"(<row r="1"><c r="A1" s="1"><v>43967</v></c></row>)", options), "a.xlsx"),
              "1: 2024-05-17");
}

TEST(Xlsx, ShowsAMergedCellInAllThatItCovers) {
    const std::string rows = R"(<row r="1"><c r="A1"><v>1</v></c><c r="B1"><v>7</v></c></row>)"
                             R"(<row r="2"><c r="A2"><v>2</v></c><c r="B2"><v>8</v></c></row>)"
                             R"(<row r="3"><c r="A3"><v>3</v></c></row><row r="9"><c r="C9"><v>4</v></c></row>)";
    const std::string merged = R"(<mergeCells><mergeCell ref="B1:C4"/><mergeCell ref="A9:B9"/></mergeCells>)";
    const auto read = readBytes(zipOf(xlsxParts({{"S", rows, merged}})), "a.xlsx");
    ASSERT_TRUE(read);
    EXPECT_EQ(shown(read->table), "1: 1 | 7 | 7\n2: 2 | 7 | 7\n3: 3 | 7 | 7\n9: | | 4");
    ASSERT_EQ(read->notes.size(), 1U);
    EXPECT_EQ(read->notes[0], "Merged cells: each of the cells under them counts as what is shown, 5 in all");
}

TEST(Xlsx, IsReadFromTheFirstSheetThatHoldsAnything) {
    const std::string row = R"(<row r="1"><c r="A1"><v>1</v></c></row>)";
    const auto read = readBytes(zipOf(xlsxParts({{"Empty", ""}, {"exported", row}, {"Doors", row}})), "a.xlsx");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->sheet, "Doors");
    ASSERT_TRUE(read->exported);
    EXPECT_EQ(shown(*read->exported), "1: 1");
}

TEST(Xlsx, IsReadFromTheSheetThatWasNamed) {
    const auto row = [](const char* value) {
        return "<row r=\"1\"><c r=\"A1\"><v>" + std::string(value) + "</v></c></row>";
    };
    const std::string bytes = zipOf(xlsxParts({{"A", row("1")}, {"B", row("2")}, {"exported", row("3")}, {"E", ""}}));
    EXPECT_EQ(shownOf(bytes, "a.xlsx", ofSheet("B")), "1: 2");
    EXPECT_EQ(shownOf(bytes, "a.xlsx", ofSheet("exported")), "1: 3");
    EXPECT_EQ(errorOf(bytes, "a.xlsx", ofSheet("E")), "a.xlsx: the sheet 'E' is empty; choose another one");
    EXPECT_EQ(errorOf(bytes, "a.xlsx", ofSheet("b")),
              "a.xlsx: there is no sheet 'b'; the workbook has 'A', 'B', 'exported', 'E'");
}

TEST(Xlsx, WithoutAnyCellIsRefused) {
    EXPECT_EQ(errorOf(zipOf(xlsxParts({{"A", ""}, {"B", "<row r=\"1\"/>"}})), "a.xlsx"),
              "a.xlsx: no sheet of the workbook holds anything; save one with the table in it");
}

struct BadWorkbook {
    const char* what;
    std::string rows;
    std::string message;
};

void PrintTo(const BadWorkbook& row, std::ostream* out) {
    *out << row.what;
}

class DamagedXlsx : public testing::TestWithParam<BadWorkbook> {};

TEST_P(DamagedXlsx, IsRefusedWithTheNameOfThePlace) {
    EXPECT_EQ(errorOf(xlsxOf(GetParam().rows, Options), "a.xlsx"), "a.xlsx: " + GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Xlsx, DamagedXlsx,
    testing::Values(
        BadWorkbook{
            "a number that is none", R"(<row r="7"><c r="C7"><v>9,5</v></c></row>)",
            "sheet 'Doors', row 7, column C: '9,5' is no number; the workbook is damaged: open and save it with its "
            "own program"},
        BadWorkbook{
            "an infinite number", R"(<row r="7"><c r="AB7"><v>1e999</v></c></row>)",
            "sheet 'Doors', row 7, column AB: '1e999' is no number; the workbook is damaged: open and save it with "
            "its own program"},
        BadWorkbook{
            "a shared text that is not there", R"(<row r="1"><c r="A1" t="s"><v>5</v></c></row>)",
            "sheet 'Doors', row 1, column A: the cell's text is missing; the workbook is damaged: open and save it "
            "with its own program"},
        BadWorkbook{
            "a row too many", R"(<row r="1048577"><c><v>5</v></c></row>)",
            "sheet 'Doors': there is no row '1048577'; the workbook is damaged: open and save it with its own program"},
        BadWorkbook{
            "a column too many", R"(<row r="3"><c r="XFE3"><v>5</v></c></row>)",
            "sheet 'Doors', row 3: there is no cell 'XFE3'; the workbook is damaged: open and save it with its own "
            "program"},
        BadWorkbook{
            "a cell of another row", R"(<row r="3"><c r="A4"><v>5</v></c></row>)",
            "sheet 'Doors', row 3: there is no cell 'A4'; the workbook is damaged: open and save it with its own "
            "program"},
        BadWorkbook{
            "no XML", "<row r=\"3\">",
            "the workbook is damaged: xl/worksheets/sheet1.xml is no XML: mismatched tag at line 1, column 140; open "
            "and save it with its own program, or fetch it again"}));

TEST(Xlsx, TakesTheLastCellThatASheetHas) {
    EXPECT_EQ(shownOf(xlsxOf(R"(<row r="1048576"><c r="A1048576"><v>5</v></c></row>)"), "a.xlsx"), "1048576: 5");
    const auto read = readBytes(xlsxOf(R"(<row r="1"><c r="XFD1"><v>5</v></c></row>)"), "a.xlsx");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->table.width(), 16384U);
}

TEST(Xlsx, WithADocumentTypeIsRefused) {
    Parts parts = xlsxParts({{"Doors", ""}});
    parts[1].second = "<?xml version=\"1.0\"?><!DOCTYPE x [<!ENTITY a \"aaaa\">]><worksheet/>";
    EXPECT_EQ(
        errorOf(zipOf(parts), "a.xlsx"),
        "a.xlsx: the workbook is damaged: xl/worksheets/sheet1.xml is no XML: a document type at line 1, column 34; "
        "open and save it with its own program, or fetch it again");
}

TEST(Xlsx, OfWhichAPartIsMissingIsRefused) {
    Parts parts = xlsxParts({{"Doors", ""}});
    parts.erase(parts.begin() + 1);
    EXPECT_EQ(
        errorOf(zipOf(parts), "a.xlsx"),
        "a.xlsx: the workbook is damaged: xl/worksheets/sheet1.xml is missing; open and save it with its own program, "
        "or fetch it again");
}

TEST(Xlsx, CutAnywhereIsRefused) {
    const std::string whole = xlsxOf(R"(<row r="1"><c r="A1"><v>5</v></c></row>)");
    for (std::size_t length = 4; length < whole.size(); ++length)
        EXPECT_TRUE(errorOf(whole.substr(0, length), "a.xlsx").starts_with("a.xlsx: the workbook is damaged: "))
            << length;
}

TEST(Xlsx, FindsItsPartsWhereverTheyAre) {
    Parts parts = xlsxParts({{"Doors", R"(<row r="1"><c r="A1"><v>5</v></c></row>)"}});
    for (auto& [name, content] : parts) {
        if (name == "xl/worksheets/sheet1.xml") name = "deep/s.xml";
        const std::string target = "Target=\"worksheets/sheet1.xml\"";
        if (const std::size_t at = content.find(target); at != std::string::npos)
            content.replace(at, target.size(), "Target=\"../deep/s.xml\"");
    }
    EXPECT_EQ(shownOf(zipOf(parts), "a.xlsx"), "1: 5");
}

}  // namespace
}  // namespace tables
