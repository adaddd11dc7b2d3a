// What a small file may claim, and what large files cost.

#include "tables/Workbooks.hpp"
#include "tables/reading/TableBuilder.hpp"

#include "support/TempFolder.hpp"

#include <gtest/gtest.h>

#include <chrono>

namespace tables {
namespace {

/// Far more than it takes on a slow machine that others use too, far less than anything that is not linear.
constexpr std::chrono::seconds Patience{20};

template <class Call>
auto inTime(Call call) {
    const auto start = std::chrono::steady_clock::now();
    auto result = call();
    EXPECT_LT(std::chrono::steady_clock::now() - start, Patience);
    return result;
}

std::string odsRepeating(std::uint64_t rows, std::uint64_t columns) {
    return odsSheet("<table:table-row table:number-rows-repeated=\"" + std::to_string(rows) +
                    "\"><table:table-cell table:number-columns-repeated=\"" + std::to_string(columns) +
                    "\"><text:p>x</text:p></table:table-cell></table:table-row>");
}

TEST(Limits, AMillionEmptyRowsAreCheap) {
    std::string rows;
    for (int i = 1; i <= 1'000'000; ++i)
        rows += "<row r=\"" + std::to_string(i) +
                "\" customFormat=\"1\" ht=\"12.8\" hidden=\"false\" customHeight=\"false\"/>";
    const std::string bytes = xlsxOf(rows + R"(<row r="1000001"><c r="A1000001"><v>1</v></c></row>)");
    EXPECT_EQ(inTime([&] { return shownOf(bytes, "a.xlsx"); }), "1000001: 1");
    EXPECT_EQ(inTime([&] { return shownOf(std::string(1'000'000, '\n') + "GUID,A", "a.csv"); }), "1000001: GUID | A");
    const std::string ods = odsSheet(
        "<table:table-row><table:table-cell><text:p>1</text:p></table:table-cell></table:table-row><table:table-row "
        "table:number-rows-repeated=\"1048575\"><table:table-cell "
        "table:number-columns-repeated=\"16384\"/></table:table-row>");
    EXPECT_EQ(inTime([&] { return shownOf(ods, "a.ods"); }), "1: 1");
}

TEST(Limits, RowsAndColumnsEndWhereASheetDoes) {
    const auto rows = readBytes(odsRepeating(4'000'000'000, 1), "a.ods");
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->table.rowCount(), MostRows);
    const auto columns = readBytes(odsRepeating(1, 4'000'000'000), "a.ods");
    ASSERT_TRUE(columns);
    EXPECT_EQ(columns->table.width(), MostColumns);
}

TEST(Limits, RepeatedCellsAreRefusedAboveTenMillion) {
    EXPECT_EQ(errorOf(odsRepeating(1'000'000, 10), "a.ods"), "no error");
    EXPECT_EQ(inTime([] { return errorOf(odsRepeating(1'000'001, 10), "a.ods"); }),
              "a.ods: sheet 'Doors': more than 10000000 cells hold something; split the table");
    EXPECT_EQ(inTime([] { return errorOf(odsRepeating(1'048'576, 16'384), "a.ods"); }),
              "a.ods: sheet 'Doors': more than 10000000 cells hold something; split the table");
}

TEST(Limits, MergedCellsThatCoverEachOtherAreRefused) {
    std::string rows;
    for (int i = 1; i <= 2000; ++i)
        rows += "<row r=\"" + std::to_string(i) + "\"><c r=\"A" + std::to_string(i) + "\"><v>1</v></c></row>";
    std::string merged = "<mergeCells>";
    for (int i = 0; i < 6000; ++i) merged += "<mergeCell ref=\"A1:XFD1048576\"/>";
    EXPECT_EQ(inTime([&] {
                  return errorOf(zipOf(xlsxParts({{"Doors", rows, merged + "</mergeCells>"}})), "a.xlsx");
              }),
              "a.xlsx: sheet 'Doors': more than 10000000 cells hold something; split the table");
}

TEST(Limits, ATextThatManyCellsShowIsKeptOnce) {
    std::string rows;
    for (int i = 1; i <= 50'000; ++i) rows += "<row r=\"" + std::to_string(i) + "\"><c t=\"s\"><v>0</v></c></row>";
    XlsxOptions options;
    options.strings = "<si><t>" + std::string(1'000'000, 'x') + "</t></si>";
    const std::string bytes = xlsxOf(rows, options);
    const auto read = inTime([&] { return readBytes(bytes, "a.xlsx"); });
    ASSERT_TRUE(read);
    EXPECT_EQ(read->table.rowCount(), 50'000U);
    EXPECT_EQ(read->table.text(&read->table.row(49'999).cells[0]).size(), 1'000'000U);
}

TEST(Limits, AWorkbookThatUnpacksToFarTooMuchIsRefused) {
    const std::string blanks(80'000'000, ' ');
    EXPECT_EQ(inTime([&] { return errorOf(xlsxOf(blanks), "a.xlsx"); }),
              "a.xlsx: the workbook unpacks to more than 67108864 bytes, which no honest one of its size does; do not "
              "trust it");
    EXPECT_EQ(inTime([&] { return errorOf(odsSheet(blanks), "a.ods"); }),
              "a.ods: the workbook unpacks to more than 67108864 bytes, which no honest one of its size does; do not "
              "trust it");
}

TEST(Limits, AWorkbookMayUnpackToSixtyFourMillionBytesWhateverItsSize) {
    const std::string cell = R"(<row r="1"><c r="A1"><v>1</v></c></row>)";
    EXPECT_EQ(shownOf(xlsxOf(cell + std::string(67'000'000, ' ')), "a.xlsx"), "1: 1");
}

TEST(Limits, AFileMayBeAsLargeAsIsSaid) {
    const std::string bytes = "GUID,A\n";
    ReadOptions options;
    options.mostBytes = bytes.size();
    EXPECT_EQ(errorOf(bytes, "a.csv", options), "no error");
    options.mostBytes = bytes.size() - 1;
    EXPECT_EQ(errorOf(bytes, "a.csv", options), "a.csv: it is larger than 6 bytes; split the table");
    const testing_support::TempFolder folder;
    const auto path = folder.write("a.csv", bytes);
    EXPECT_EQ(readFile(path, options).error().message, path.string() + ": it is larger than 6 bytes; split the table");
    options.mostBytes = bytes.size();
    EXPECT_TRUE(readFile(path, options));
}

TEST(Limits, AnEndlessTagIsRefusedSoon) {
    EXPECT_TRUE(inTime([&] {
                    return errorOf(xlsxOf("<row spans=\"" + std::string(40'000'000, 'x') + "\"/>"), "a.xlsx");
                }).find("no XML: tag too long") != std::string::npos);
}

TEST(Limits, ATagBelowTheLimitIsRead) {
    EXPECT_EQ(
        shownOf(xlsxOf("<row r=\"1\" spans=\"" + std::string(900'000, 'x') + "\"><c><v>1</v></c></row>"), "a.xlsx"),
        "1: 1");
}

TEST(Limits, DeepNestingIsNoMatter) {
    std::string deep;
    for (int i = 0; i < 200'000; ++i) deep += "<a>";
    EXPECT_TRUE(errorOf(xlsxOf(deep), "a.xlsx").find("no XML") != std::string::npos);
}

TEST(Limits, ALineOfAMillionFieldsIsRead) {
    const auto read = inTime([] { return readBytes("GUID" + std::string(1'000'000, ';') + "x", "a.csv"); });
    ASSERT_TRUE(read);
    EXPECT_EQ(read->table.width(), 1'000'001U);
}

TEST(Limits, QuotesAloneAreReadInLinearTime) {
    EXPECT_EQ(inTime([] { return errorOf("GUID,A\n" + std::string(3'000'001, '"'), "a.csv", cutBy(',')); }),
              "a.csv: line 2, column 1: the quote at its beginning is never closed; close it, or write \"\" for a "
              "quote that is "
              "meant");
    EXPECT_EQ(inTime([] { return errorOf("GUID,A\n" + std::string(3'000'000, '"'), "a.csv", cutBy(',')); }),
              "no error");
}

}  // namespace
}  // namespace tables
