#include "tables/Writing.hpp"

#include "tables/Workbooks.hpp"
#include "tables/reading/Package.hpp"
#include "tables/reading/TableBuilder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tables {
namespace {

using testing::HasSubstr;
using testing::Not;

Grid grid(std::vector<std::string> values) {
    Grid result{{"GUID", "#Storey", "#Name", "FireRating"}, {}};
    for (std::string& value : values) result.rows.push_back({Door, "EG", "Tür", std::move(value)});
    return result;
}

std::string partOf(const std::string& workbook, const std::string& part) {
    auto package = Package::open(workbook);
    std::string content;
    if (!package || !package->read(part, [&](std::string_view stretch) {
            content += stretch;
            return true;
        }))
        return "missing";
    return content;
}

TEST(DelimitedWriter, QuotesWhatAReaderWouldCutOrTrim) {
    const std::string start = std::string(Door) + ",EG,Tür,";
    EXPECT_EQ(writeDelimited(grid({"a;b", "a,b", "a\"b", "a\nb", "a\rb", " a", "a ", "", "a b"}), ','),
              "GUID,#Storey,#Name,FireRating\n" + start + "a;b\n" + start + "\"a,b\"\n" + start + "\"a\"\"b\"\n" +
                  start + "\"a\nb\"\n" + start + "\"a\rb\"\n" + start + "\" a\"\n" + start + "\"a \"\n" + start + "\n" +
                  start + "a b\n");
    EXPECT_THAT(writeDelimited(grid({"a\tb", "a,b"}), '\t'),
                testing::EndsWith("\t\"a\tb\"\n" + std::string(Door) + "\tEG\tTür\ta,b\n"));
}

TEST(DelimitedWriter, KeepsWhatASpreadsheetProgramWouldTakeForAFormula) {
    EXPECT_THAT(writeDelimited(grid({"=1+1", "-5", "@x"}), ','), HasSubstr("Tür,=1+1\n"));
    EXPECT_EQ(askedOf(writeDelimited(grid({"=1+1"}), ','), "a.csv"), std::string(Door) + " FireRating (none)->=1+1\n");
}

TEST(WorkbookWriter, WritesTextsThatStayTexts) {
    const auto bytes = writeWorkbook(grid({"007", "=1+1", "9.5", "", "true"}), true);
    ASSERT_TRUE(bytes);
    const auto read = readBytes(*bytes, "a.xlsx");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->sheet, "updates");
    ASSERT_TRUE(read->exported);
    EXPECT_EQ(shown(read->table), shown(*read->exported));
    const char* const expected[] = {"007", "=1+1", "9.5", "", "true"};
    for (std::size_t i = 0; i < 5; ++i) {
        const Table::Row row = read->table.row(i + 1);
        EXPECT_EQ(read->table.text(row.cell(3)), expected[i]);
        for (const Cell& cell : row.cells) EXPECT_EQ(cell.kind, CellKind::Text);
    }
}

TEST(WorkbookWriter, KeepsWhatLooksLikeAnEscape) {
    for (const std::string text :
         {"_x0041_", "_x005F_", "_x005F_x0041_", "_x004", "_xXYZW_", "_x0041\x01", "_x0041\uFFFF"}) {
        const auto bytes = writeWorkbook(grid({text}), false);
        const auto read = readBytes(*bytes, "a.xlsx");
        EXPECT_EQ(read->table.text(read->table.row(1).cell(3)), text);
    }
}

TEST(WorkbookWriter, MakesAHeaderThatStaysAndFiltersAndGreysWhatIsForTheReader) {
    const auto bytes = writeWorkbook(grid({"T 30"}), true);
    ASSERT_TRUE(bytes);
    const std::string sheet = partOf(*bytes, "xl/worksheets/sheet1.xml");
    EXPECT_THAT(sheet, HasSubstr("state=\"frozen\""));
    EXPECT_THAT(sheet, HasSubstr("ySplit=\"1\""));
    EXPECT_THAT(sheet, HasSubstr("<autoFilter ref=\"A1:D2\"/>"));
    EXPECT_THAT(sheet, Not(HasSubstr("<f>")));
    const std::string book = partOf(*bytes, "xl/workbook.xml");
    EXPECT_THAT(book, HasSubstr("<sheet name=\"updates\" sheetId=\"1\" r:id"));
    EXPECT_THAT(book, HasSubstr("<sheet name=\"exported\" sheetId=\"2\" state=\"hidden\" r:id"));
    const std::string styles = partOf(*bytes, "xl/styles.xml");
    EXPECT_THAT(styles, HasSubstr("numFmtId=\"49\""));
    // The GUID and the columns for the reader have one style, which is not that of the items.
    EXPECT_THAT(sheet, testing::ContainsRegex(
                           "<c r=\"A2\" s=\"2\".*<c r=\"B2\" s=\"2\".*<c r=\"C2\" s=\"2\".*<c r=\"D2\" s=\"3\""));
    EXPECT_THAT(styles, HasSubstr("FFEEEEEE"));
}

TEST(WorkbookWriter, MakesColumnsAsWideAsTheirTextsWithinBounds) {
    Grid wide{{"GUID", "A", "B"}, {{Door, std::string(500, 'x'), "y"}}};
    const auto bytes = writeWorkbook(wide, false);
    ASSERT_TRUE(bytes);
    const std::string sheet = partOf(*bytes, "xl/worksheets/sheet1.xml");
    EXPECT_THAT(sheet, HasSubstr("<col min=\"1\" max=\"1\" width=\"37.7"));
    EXPECT_THAT(sheet, HasSubstr("<col min=\"2\" max=\"2\" width=\"42.7"));
    EXPECT_THAT(sheet, HasSubstr("<col min=\"3\" max=\"3\" width=\"8.7"));
    EXPECT_EQ(partOf(*bytes, "xl/worksheets/sheet2.xml"), "missing");
}

TEST(WorkbookWriter, GivesTheSameBytesForTheSameGrid) {
    const auto first = writeWorkbook(grid({"a", "b"}), true);
    const auto second = writeWorkbook(grid({"a", "b"}), true);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(*first, *second);
}

TEST(WorkbookWriter, RefusesWhatASheetCannotHold) {
    EXPECT_EQ(
        writeWorkbook(grid({std::string(32768, 'x')}), false).error().message,
        "row 2, column FireRating: the text is longer than the 32767 letters of a cell; leave the item out, or write a "
        ".csv");
    EXPECT_EQ(writeWorkbook(Grid{std::vector<std::string>(16385, "A"), {}}, false).error().message,
              "a sheet has 16384 columns, the table 16385; choose fewer items, or write a .csv");
    EXPECT_EQ(
        writeWorkbook(Grid{{"GUID"}, std::vector<std::vector<std::string>>(1'048'576, {""})}, false).error().message,
        "a sheet has 1048576 rows, the table 1048577; choose fewer elements, or write a .csv");
}

TEST(WorkbookWriter, TakesTheMostThatASheetHolds) {
    for (const std::string& text : {std::string(32767, 'x'), std::string(32766, 'x'), std::string(32767 / 7, '\x01')}) {
        const auto bytes = writeWorkbook(grid({text}), false);
        ASSERT_TRUE(bytes) << bytes.error().message;
        const auto read = readBytes(*bytes, "a.xlsx");
        EXPECT_EQ(read->table.text(read->table.row(1).cell(3)), text);
    }
    EXPECT_TRUE(writeWorkbook(Grid{std::vector<std::string>(16384, "A"), {}}, false));
    EXPECT_TRUE(writeWorkbook(Grid{{"GUID"}, std::vector<std::vector<std::string>>(1'048'575, {""})}, false));
}

}  // namespace
}  // namespace tables
