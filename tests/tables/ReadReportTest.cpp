#include "tables/ReadReport.hpp"

#include "tables/Workbooks.hpp"

#include <gtest/gtest.h>

namespace tables {
namespace {

std::string lineOf(const std::string& bytes, const std::string& name) {
    const auto read = readBytes(bytes, name);
    const auto asked = findUpdates(*read, name, {});
    return reportLine(name, *read, *asked);
}

TEST(ReadReport, IsOneLine) {
    const auto guid = [](int number) { return std::to_string(10 + number) + "000000-86AA-47AF-8EC8-2D488F3BA8D9"; };
    std::string bytes = "GUID,#Name,A,B,C\r\n";
    for (int i = 0; i < 57; ++i) bytes += guid(i) + ",T\xFCr,old,old," + (i < 12 ? "new" : "old") + "\r\n";
    AskOptions options;
    options.current = [](std::string_view, std::string_view) { return "old"; };
    const auto read = readBytes(bytes, "doors.csv");
    const auto asked = findUpdates(*read, "doors.csv", options);
    EXPECT_EQ(reportLine("doors.csv", *read, *asked),
              "Read doors.csv: comma, Windows-1252, grid, 57 elements, 3 items: 12 updates, 159 unchanged, 0 left out");
}

TEST(ReadReport, CountsOneAsOne) {
    EXPECT_EQ(lineOf("GUID;A\n" + std::string(Door) + ";1\nx;2\n", "a.csv"),
              "Read a.csv: semicolon, UTF-8, grid, 1 element, 1 item: 1 update, 0 unchanged, 1 left out");
}

TEST(ReadReport, NamesEachDelimiterAndLayout) {
    EXPECT_EQ(lineOf(std::string(Door) + "\tA\t1\t2\n", "a.tsv"),
              "Read a.tsv: TAB, UTF-8, long, 1 element, 1 item: 1 update, 0 unchanged, 0 left out");
    EXPECT_EQ(lineOf(std::string(Door) + "|A|1\n", "a.csv"),
              "Read a.csv: bar, UTF-8, long, 1 element, 1 item: 1 update, 0 unchanged, 0 left out");
}

TEST(ReadReport, NamesTheSheetOfAWorkbook) {
    EXPECT_EQ(lineOf(xlsxOf("<row r=\"1\"><c t=\"inlineStr\"><is><t>GUID</t></is></c></row>"), "a.xlsx"),
              "Read a.xlsx: sheet Doors, grid, 0 elements, 0 items: 0 updates, 0 unchanged, 0 left out");
}

TEST(ReadReport, HasTheSameAsPlainNumbers) {
    const auto read = readBytes("GUID;A\n" + std::string(Door) + ";T\xFCr\nx;2\n", "a.csv");
    const auto asked = findUpdates(*read, "a.csv", {});
    const ReadReport report = summarize(*read, *asked);
    EXPECT_EQ(report.format, "csv");
    EXPECT_EQ(report.delimiter, ";");
    EXPECT_EQ(report.encoding, "windows-1252");
    EXPECT_EQ(report.sheet, "");
    EXPECT_EQ(report.layout, "grid");
    EXPECT_EQ(report.elements, 1U);
    EXPECT_EQ(report.items, 1U);
    EXPECT_EQ(report.updates, 1U);
    EXPECT_EQ(report.unchanged, 0U);
    ASSERT_EQ(report.leftOut.size(), 1U);
    EXPECT_EQ(report.leftOut[0].line, 3U);
    EXPECT_EQ(report.leftOut[0].column, "GUID");
}

}  // namespace
}  // namespace tables
