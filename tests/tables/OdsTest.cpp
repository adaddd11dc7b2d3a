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

std::string valueCell(const std::string& attributes, const std::string& text) {
    return "<table:table-cell " + attributes + "><text:p>" + text + "</text:p></table:table-cell>";
}

class CellOfAnOds : public testing::TestWithParam<GoodCell> {};

TEST_P(CellOfAnOds, IsReadAsPeopleSeeIt) {
    const std::string row = "<table:table-row>" + GetParam().cell + "</table:table-row>";
    EXPECT_EQ(shownOf(odsSheet(row), "a.ods"), "1: " + GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Ods, CellOfAnOds,
    testing::Values(
        GoodCell{"a text", R"(<table:table-cell office:value-type="string"><text:p>007</text:p></table:table-cell>)",
                 "007"},
        GoodCell{"blanks", R"(<table:table-cell office:value-type="string"><text:p>  a  b<text:s text:c="3"/>c
 d</text:p></table:table-cell>)",
                 "a b   c d"},
        GoodCell{"two paragraphs", "<table:table-cell><text:p>a</text:p><text:p>b</text:p></table:table-cell>", "a b"},
        GoodCell{"a span, a TAB and a line break",
                 "<table:table-cell><text:p>a<text:span>b</text:span><text:tab/>c<text:line-break/>d</text:p></"
                 "table:table-cell>",
                 "ab c d"},
        GoodCell{"a comment beside it",
                 "<table:table-cell><office:annotation><text:p>no</text:p></office:annotation><text:p>a</text:p></"
                 "table:table-cell>",
                 "a"},
        GoodCell{"a number as shown in German", valueCell(R"(office:value-type="float" office:value="9.50")", "9,5"),
                 "9.5"},
        GoodCell{"a percentage", valueCell(R"(office:value-type="percentage" office:value="0.5")", "50%"), "0.5"},
        GoodCell{"a date", R"(<table:table-cell office:value-type="date" office:date-value="2024-05-17"/>)",
                 "2024-05-17"},
        GoodCell{"a date with time",
                 R"(<table:table-cell office:value-type="date" office:date-value="2024-05-17T08:30:00.000000000"/>)",
                 "2024-05-17T08:30:00"},
        GoodCell{"a time", R"(<table:table-cell office:value-type="time" office:time-value="PT08H30M00.5S"/>)",
                 "08:30:00"},
        GoodCell{"a truth value", valueCell(R"(office:value-type="boolean" office:boolean-value="true")", "WAHR"),
                 "true"},
        GoodCell{"an error",
                 valueCell(R"(office:value-type="string" office:string-value="" calcext:value-type="error")", "#N/A"),
                 "#N/A"},
        GoodCell{"a formula's text without paragraph",
                 R"(<table:table-cell table:formula="of:=A1" office:value-type="string" office:string-value="a"/>)",
                 "a"},
        GoodCell{"repeated cells",
                 R"(<table:table-cell table:number-columns-repeated="2"/>)" +
                     valueCell(R"(table:number-columns-repeated="2")", "a"),
                 "| | a | a"}));

std::string cell(const std::string& text) {
    return "<table:table-cell><text:p>" + text + "</text:p></table:table-cell>";
}

TEST(Ods, RepeatsRows) {
    EXPECT_EQ(shownOf(odsSheet("<table:table-row table:number-rows-repeated=\"3\"><table:table-cell/></table:table-row>"
                               "<table:table-row table:number-rows-repeated=\"2\">" +
                               cell("a") + "</table:table-row><table:table-row>" + cell("b") + "</table:table-row>"),
                      "a.ods"),
              "4: a\n5: a\n6: b");
}

TEST(Ods, ShowsAMergedCellInAllThatItCovers) {
    const std::string rows =
        "<table:table-row><table:table-cell table:number-columns-spanned=\"2\" "
        "table:number-rows-spanned=\"2\"><text:p>m</text:p>"
        "</table:table-cell><table:covered-table-cell><text:p>hidden</text:p></table:covered-table-cell>" +
        cell("x") +
        "</table:table-row><table:table-row><table:covered-table-cell table:number-columns-repeated=\"2\"/>" +
        cell("y") + "</table:table-row>";
    EXPECT_EQ(shownOf(odsSheet(rows), "a.ods"), "1: m | m | x\n2: m | m | y");
}

TEST(Ods, IsReadFromTheFirstSheetThatHoldsAnythingAndKeepsTheExportedOne) {
    const auto sheet = [](const std::string& name, const std::string& row) {
        return "<table:table table:name=\"" + name + "\"><table:table-row>" + row + "</table:table-row></table:table>";
    };
    const std::string bytes = odsOf(sheet("exported", cell("old")) + sheet("Empty", "<table:table-cell/>") +
                                    sheet("A", cell("a")) + sheet("B", cell("b")));
    const auto read = readBytes(bytes, "a.ods");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->sheet, "A");
    EXPECT_EQ(shown(*read->exported), "1: old");
    EXPECT_EQ(shownOf(bytes, "a.ods", ofSheet("B")), "1: b");
    EXPECT_EQ(shownOf(bytes, "a.ods", ofSheet("exported")), "1: old");
    EXPECT_EQ(errorOf(bytes, "a.ods", ofSheet("Empty")), "a.ods: the sheet 'Empty' is empty; choose another one");
}

TEST(Ods, TellsOfAFormulaThatHasNoValue) {
    const auto read = readBytes(
        odsSheet("<table:table-row>" + cell("a") + "<table:table-cell table:formula=\"of:=A1\"/></table:table-row>"),
        "a.ods");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->table.row(0).cell(1)->kind, CellKind::Uncomputed);
}

TEST(Ods, WithANumberThatIsNoneIsRefusedWithItsPlace) {
    EXPECT_EQ(
        errorOf(odsSheet("<table:table-row table:number-rows-repeated=\"6\"/><table:table-row>" + cell("a") +
                         "<table:table-cell office:value-type=\"float\" office:value=\"9,5\"/></table:table-row>"),
                "a.ods"),
        "a.ods: sheet 'Doors', row 7, column B: '9,5' is no number; the workbook is damaged: open and save it with its "
        "own program");
}

TEST(Ods, ThatIsEncryptedIsRefused) {
    EXPECT_EQ(
        errorOf(zipOf({{"mimetype", "application/vnd.oasis.opendocument.spreadsheet"},
                       {"content.xml", "\x01\x02"},
                       {"META-INF/manifest.xml",
                        "<m:manifest xmlns:m=\"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0\"><m:file-entry>"
                        "<m:encryption-data/></m:file-entry></m:manifest>"}}),
                "a.ods"),
        "a.ods: the workbook is encrypted; save it without a password");
}

TEST(Ods, CutAnywhereIsRefused) {
    const std::string whole = odsSheet("<table:table-row>" + cell("a") + "</table:table-row>");
    for (std::size_t length = 4; length < whole.size(); ++length)
        EXPECT_TRUE(errorOf(whole.substr(0, length), "a.ods").starts_with("a.ods: the workbook is damaged: "))
            << length;
}

TEST(Ods, WithATableInATableIsRead) {
    EXPECT_EQ(shownOf(odsSheet("<table:table-row>" + cell("a") +
                               "<table:table-cell><table:table table:name=\"in\"><table:table-row>" + cell("b") +
                               "</table:table-row></table:table></table:table-cell></table:table-row>"),
                      "a.ods"),
              "1: b");
}

}  // namespace
}  // namespace tables
