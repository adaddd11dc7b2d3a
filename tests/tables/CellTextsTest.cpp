#include "tables/Guids.hpp"
#include "tables/Text.hpp"
#include "tables/reading/TableBuilder.hpp"
#include "tables/reading/Values.hpp"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cmath>

namespace tables {
namespace {

TEST(Guid, IsReadInEachOfItsForms) {
    const std::string guid = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9";
    for (const char* text : {"4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9", "4b77f0f7-86aa-47af-8ec8-2d488f3ba8d9",
                             "{4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9}", "  4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9 ",
                             "\u00A04B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9"})
        EXPECT_EQ(parseGuid(text), guid) << text;
    EXPECT_EQ(parseGuid("00u5AvCTvJDe$l0EZ90SUQ"), "00E052B9-31DE-5336-8FEF-00E8C901C79A");
    EXPECT_EQ(parseGuid("3$$$$$$$$$$$$$$$$$$$$$"), "FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF");
    EXPECT_EQ(parseGuid("0000000000000000000000"), "00000000-0000-0000-0000-000000000000");
}

TEST(Guid, IsNothingElse) {
    for (const char* text : {"", "GUID", "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D", "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D99",
                             "4B77F0F7x86AA-47AF-8EC8-2D488F3BA8D9", "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8DG",
                             "(4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9)", "{4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9",
                             "40u5AvCTvJDe$l0EZ90SUQ", "00u5AvCTvJDe-l0EZ90SUQ", "00u5AvCTvJDe$l0EZ90SU"})
        EXPECT_EQ(parseGuid(text), std::nullopt) << text;
}

TEST(GuidColumn, IsNamedInAnyCase) {
    for (const char* text : {"GUID", "guid", "GlobalId", "GLOBALID", " Guid "}) EXPECT_TRUE(namesGuids(text)) << text;
    for (const char* text : {"", "ID", "GUIDs", "#GUID"}) EXPECT_FALSE(namesGuids(text)) << text;
}

TEST(NumberText, IsTheShortestThatReadsBack) {
    EXPECT_EQ(numberText(0), "0");
    EXPECT_EQ(numberText(-0.0), "0");
    EXPECT_EQ(numberText(9.7), "9.7");
    EXPECT_EQ(numberText(-12), "-12");
    EXPECT_EQ(numberText(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(numberText(9999999999999998), "9999999999999998");
    EXPECT_EQ(numberText(1e16), "1e+16");
    EXPECT_EQ(numberText(1e-7), "0.0000001");
    EXPECT_EQ(numberText(9.9e-8), "9.9e-08");
    EXPECT_TRUE(rc::check([](double number) {
        RC_PRE(std::isfinite(number));
        RC_ASSERT(parseNumber(numberText(number)) == number);
    }));
}

TEST(NumberFormat, IsADateByItsLetters) {
    for (const char* code :
         {"yyyy\\-mm\\-dd", "d. mmmm", "[$-407]d/m/yy;@", "dd.mm.yyyy hh:mm", "mmm-yy", "m", "[Red]DD.MM.YY"})
        EXPECT_EQ(styleOfFormat(code), NumberStyle::Date) << code;
    for (const char* code : {"hh:mm", "[h]:mm:ss", "mm:ss.0", "h:mm AM/PM", "[mm]"})
        EXPECT_EQ(styleOfFormat(code), NumberStyle::Time) << code;
    for (const char* code : {"General", "0.00", "#,##0.00 \"day\"", "0\\d", "0_d", "[Red]0", "[$USD] 0.00", "0.00E+00",
                             "@", "\"d", "[", "0;\"d\"", "*d0", ""})
        EXPECT_EQ(styleOfFormat(code), NumberStyle::Number) << code;
}

TEST(Duration, OfISOIsAClockTime) {
    EXPECT_EQ(durationText("PT08H30M00S"), "08:30:00");
    EXPECT_EQ(durationText("PT100H5M7.25S"), "100:05:07");
    EXPECT_EQ(durationText("PT5M"), "00:05:00");
    for (const char* other : {"", "P1D", "PTxH", "PT5", "PT-5M", "PT5X"}) EXPECT_EQ(durationText(other), other);
}

TEST(ColumnLetters, AreThoseOfASpreadsheet) {
    EXPECT_EQ(columnLetters(0), "A");
    EXPECT_EQ(columnLetters(25), "Z");
    EXPECT_EQ(columnLetters(26), "AA");
    EXPECT_EQ(columnLetters(701), "ZZ");
    EXPECT_EQ(columnLetters(702), "AAA");
    EXPECT_EQ(columnLetters(16383), "XFD");
}

TEST(TextOfAMessage, IsCutBetweenCharacters) {
    const std::string fits(40, 'x');
    EXPECT_EQ(inQuotes(fits), "'" + fits + "'");
    EXPECT_EQ(inQuotes(fits + "x"), "'" + fits + "…'");
    EXPECT_EQ(inQuotes(fits.substr(1) + "ä"), "'" + fits.substr(1) + "…'");
    EXPECT_EQ(inQuotes(fits.substr(2) + "ä"), "'" + fits.substr(2) + "ä'");
}

}  // namespace
}  // namespace tables
