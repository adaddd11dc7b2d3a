#include "tables/asked/DecimalComma.hpp"

#include "tables/Workbooks.hpp"

#include <gtest/gtest.h>

namespace tables {
namespace {

TEST(DecimalComma, IsSaidByNumbersThatCanMeanNothingElse) {
    for (const char* text :
         {"9,5", "-9,5", "+0,125", "1234,5", "1234,567", "1.234,5", "1.234.567,123", "12,3456", "0,001"})
        EXPECT_EQ(commaEvidence(text), CommaEvidence::Decimal) << text;
    for (const char* text : {"9.5", "0.125", "1234.567", "1,234.5", "1,234,567", "-1,234,567.25"})
        EXPECT_EQ(commaEvidence(text), CommaEvidence::Grouping) << text;
    for (const char* text :
         {"", "9", "1,234", "1.234", "9,", ",5", "9,5,", "1,23,4", "a,5", "9,5 m", "T 30", "2024-05-17", "1e3", ","})
        EXPECT_EQ(commaEvidence(text), CommaEvidence::None) << text;
}

/// One letter a cell of the column: "c" a decimal comma, "-" none.
std::string flags(const std::string& column) {
    std::string bytes = "GUID;A\n";
    std::size_t number = 10;
    std::string rest = column;
    for (std::size_t end = 0; !rest.empty(); rest.erase(0, end + 1)) {
        end = std::min(rest.find(' '), rest.size() - 1);
        const std::string cell = rest.substr(0, rest[end] == ' ' ? end : end + 1);
        bytes += std::to_string(number++) + "000000-86AA-47AF-8EC8-2D488F3BA8D9;" + cell + "\n";
    }
    const auto read = readBytes(bytes, "a.csv");
    const auto asked = findUpdates(*read, "a.csv", {});
    std::string text;
    for (const AskedUpdate& update : asked->updates) text += update.decimalComma ? 'c' : '-';
    return text;
}

TEST(DecimalComma, IsKnownFromTheOtherCellsOfTheColumn) {
    EXPECT_EQ(flags("9,5"), "-");
    EXPECT_EQ(flags("9,5 1,25"), "cc");
    EXPECT_EQ(flags("9,5 1,234"), "-c");
    EXPECT_EQ(flags("9,5 1,234 2,5"), "ccc");
    EXPECT_EQ(flags("1,234 2,345"), "--");
    EXPECT_EQ(flags("9,5 1,25 7"), "cc-");
    EXPECT_EQ(flags("9,5 1,25 2.5"), "---");
    EXPECT_EQ(flags("9,5 1,25 x,5"), "cc-");
}

TEST(DecimalComma, OfATableWithTrueNumbersIsNotContradictedByThem) {
    const auto cell = [](const std::string& text) { return "<c t=\"inlineStr\"><is><t>" + text + "</t></is></c>"; };
    const std::string bytes =
        xlsxOf("<row r=\"1\">" + cell("GUID") + cell("A") + "</row><row r=\"2\">" + cell(Door) + cell("9,5") +
               "</row><row r=\"3\">" + cell(Window) + "<c><v>2.5</v></c></row><row r=\"4\">" +
               cell("00000000-86AA-47AF-8EC8-2D488F3BA8D9") + cell("1,5") + "</row>");
    const auto read = readBytes(bytes, "a.xlsx");
    const auto asked = findUpdates(*read, "a.xlsx", {});
    ASSERT_EQ(asked->updates.size(), 3U);
    EXPECT_TRUE(asked->updates[0].decimalComma);
    EXPECT_FALSE(asked->updates[1].decimalComma);
    EXPECT_TRUE(asked->updates[2].decimalComma);
}

TEST(DecimalComma, CountsWhereANumberIsComparedWithTheModel) {
    AskOptions options;
    options.current = [](std::string_view, std::string_view) { return "9.500000"; };
    EXPECT_EQ(askedOf(std::string("GUID;A\n") + Door + ";9,5\n" + Window + ";1,25\n", "a.csv", options),
              std::string(Window) + " A (none)->1,25\n");
}

}  // namespace
}  // namespace tables
