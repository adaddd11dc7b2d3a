#include "tables/Workbooks.hpp"
#include "tables/reading/Delimited.hpp"

#include <gtest/gtest.h>

namespace tables {
namespace {

struct GoodText {
    const char* what;
    std::string bytes;
    std::string shown;
};

void PrintTo(const GoodText& row, std::ostream* out) {
    *out << row.what;
}

class ReadableText : public testing::TestWithParam<GoodText> {};

TEST_P(ReadableText, IsReadAsPeopleExpect) {
    EXPECT_EQ(shownOf(GetParam().bytes, "doors.csv"), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Delimited, ReadableText,
    testing::Values(
        GoodText{"comma", "GUID,A,B\nx,1,2\n", "1: GUID | A | B\n2: x | 1 | 2"},
        GoodText{"semicolon with decimal commas", "GUID;A;B\nx;9,5;1,25\n", "1: GUID | A | B\n2: x | 9,5 | 1,25"},
        GoodText{"TAB with commas and semicolons", "GUID\tA\nx\ta, b; c\n", "1: GUID | A\n2: x | a, b; c"},
        GoodText{"bar", "GUID|A\nx|1\n", "1: GUID | A\n2: x | 1"},
        GoodText{"no header", std::string(Door) + ";Name;a,b\n" + Window + ";Name;c,d,e\n",
                 "1: " + std::string(Door) + " | Name | a,b\n2: " + Window + " | Name | c,d,e"},
        GoodText{"another delimiter in each header", "GUID,\"A;B\",\"C;D\"\nx,1,2\n",
                 "1: GUID | A;B | C;D\n2: x | 1 | 2"},
        GoodText{"the delimiter said by the file", "sep=;\r\nGUID;a,b\r\nx;1\r\n", "2: GUID | a,b\n3: x | 1"},
        GoodText{"quotes", "GUID,A\nx,\"a, \"\"b\"\"\"\n", "1: GUID | A\n2: x | a, \"b\""},
        GoodText{"a quote within", "GUID,A\nx,5\" pipe\n", "1: GUID | A\n2: x | 5\" pipe"},
        GoodText{"text behind a closing quote", "GUID,A\nx,\"5\" pipe\n", "1: GUID | A\n2: x | 5 pipe"},
        GoodText{"an empty quoted field", "GUID,A,B\nx,\"\",1\n", "1: GUID | A | B\n2: x | | 1"},
        GoodText{"a line end in a field", "GUID,A\nx,\"a\r\nb\"\ny,1\n", "1: GUID | A\n2: x | a  b\n4: y | 1"},
        GoodText{"Windows line ends", "GUID,A\r\nx,1\r\n", "1: GUID | A\n2: x | 1"},
        GoodText{"old Mac line ends", "GUID,A\rx,1\r", "1: GUID | A\n2: x | 1"},
        GoodText{"no last line end", "GUID,A\nx,1", "1: GUID | A\n2: x | 1"},
        GoodText{"empty lines", "\n\nGUID,A\n\n,\nx,1\n\n", "3: GUID | A\n6: x | 1"},
        GoodText{"blanks stay", "GUID,A\nx, 1 \n", "1: GUID | A\n2: x |  1 "}));

TEST(DelimitedText, OfWhichAQuoteIsNeverClosedIsRefusedWithItsPlace) {
    EXPECT_EQ(errorOf("GUID,A,B\nx,1,2\ny,1,\"open\nz,3,4\n", "doors.csv"),
              "doors.csv: line 3, column 3: the quote at its beginning is never closed; close it, or write \"\" for a "
              "quote that is meant");
}

TEST(DelimitedText, WithoutAnyDelimiterIsRefused) {
    EXPECT_EQ(errorOf("GUID\nx\n", "doors.csv"),
              "doors.csv: no comma, semicolon, TAB or bar cuts its lines into columns; name the delimiter, or save the "
              "table again");
}

TEST(DelimitedText, IsCutByTheDelimiterThatWasNamed) {
    EXPECT_EQ(shownOf("GUID/A,B\nx/1,2\n", "doors.csv", cutBy('/')), "1: GUID | A,B\n2: x | 1,2");
    EXPECT_EQ(shownOf("sep=;\nGUID;A,B\n", "doors.csv", cutBy(',')), "2: GUID;A | B");
}

TEST(DelimitedText, KeepsThatALineEndsInEmptyFields) {
    const Result<Table> table = readDelimited("a,b,,\n", ',');
    ASSERT_TRUE(table);
    EXPECT_EQ(table->width(), 2U);
    EXPECT_EQ(table->writtenWidth(), 4U);
}

TEST(DelimitedText, OfBlanksAndNothingIsEmpty) {
    EXPECT_EQ(errorOf("", "doors.csv"), "doors.csv: it is empty; save it with the table in it");
    EXPECT_EQ(errorOf(",,\n,,\n", "doors.csv"), "doors.csv: it is empty; save it with the table in it");
    EXPECT_EQ(errorOf("\xEF\xBB\xBF", "doors.csv", cutBy(',')), "doors.csv: it is empty; save it with the table in it");
}

}  // namespace
}  // namespace tables
