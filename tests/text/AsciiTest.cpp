#include "text/Ascii.hpp"

#include <gtest/gtest.h>

TEST(Ascii, CaseOfLettersIsNoDifference) {
    EXPECT_TRUE(text::equalIgnoringCase("IfcWall", "IFCWALL"));
    EXPECT_TRUE(text::equalIgnoringCase("", ""));
    EXPECT_FALSE(text::equalIgnoringCase("IfcWall", "IfcWalls"));
    EXPECT_FALSE(text::equalIgnoringCase("IfcWalls", "IfcWall"));
}

TEST(Ascii, NeighboursOfTheLettersStayAsTheyAre) {
    EXPECT_EQ(text::toUpperCase("@az[`AZ{09"), "@AZ[`AZ{09");
    EXPECT_FALSE(text::equalIgnoringCase("[", "{"));
    EXPECT_FALSE(text::equalIgnoringCase("@", "`"));
}

TEST(Ascii, BytesOfOtherCharactersStayAsTheyAre) {
    EXPECT_EQ(text::toUpperCase("m\xC3\xA4\xC3\x9F"), "M\xC3\xA4\xC3\x9F");
}
