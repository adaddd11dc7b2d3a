#include "Guid.hpp"
#include "Support.hpp"

#include <gtest/gtest.h>

using testing_support::units;
using testing_support::utf8;

TEST(Guid, ReadsDigitsOfEitherCaseInTheOrderOfTheText) {
    GS::Guid upper, lower;
    EXPECT_EQ(upper.ConvertFromString("A32931C7-B3B2-4117-8D6A-3038DD4E9A78"), NoError);
    EXPECT_EQ(lower.ConvertFromString("a32931c7-b3b2-4117-8d6a-3038dd4e9a78"), NoError);
    EXPECT_EQ(upper, lower);
    EXPECT_EQ(upper.bytes[0], 0xA3);
    EXPECT_EQ(upper.bytes[4], 0xB3);
    EXPECT_EQ(upper.bytes[15], 0x78);
    EXPECT_FALSE(upper.IsNull());
    EXPECT_EQ(utf8(lower.ToUniString()), "A32931C7-B3B2-4117-8D6A-3038DD4E9A78");
}

TEST(Guid, AnythingElseGivesAnErrorAndTheNullGuid) {
    const char* const wrong[] = {"",
                                 "A32931C7-B3B2-4117-8D6A-3038DD4E9A7",
                                 "A32931C7-B3B2-4117-8D6A-3038DD4E9A788",
                                 " A32931C7-B3B2-4117-8D6A-3038DD4E9A7",
                                 "A32931C7-B3B2-4117-8D6A-3038DD4E9A7 ",
                                 "A32931C7B3B2-4117-8D6A-3038DD4E9A78-",
                                 "A32931C7-B3B2-4117-8D6A-3038DD4E9A7G",
                                 "{A32931C7-B3B2-4117-8D6A-3038DD4E9A}",
                                 "A32931C7_B3B2_4117_8D6A_3038DD4E9A78",
                                 "+32931C7-B3B2-4117-8D6A-3038DD4E9A78",
                                 "0x2931C7-B3B2-4117-8D6A-3038DD4E9A78",
                                 "A32931C7-B3B2-4117-8D6A-3038DD4E9A\xC3\xBC",
                                 "2eDxCI2IzFkfWbPkbJZDkN"};
    for (const char* const text : wrong) {
        GS::Guid guid;
        ASSERT_EQ(guid.ConvertFromString("A32931C7-B3B2-4117-8D6A-3038DD4E9A78"), NoError);
        EXPECT_EQ(guid.ConvertFromString(text), GS::Guid::ErrBadFormat) << text;
        EXPECT_TRUE(guid.IsNull()) << text;
    }
}

TEST(Guid, ZeroInsideTheTextIsNoDigit) {
    std::u16string text = u"A32931C7-B3B2-4117-8D6A-3038DD4E9A78";
    text[10] = u'\0';
    EXPECT_EQ(GS::Guid().ConvertFromString(units(text)), GS::Guid::ErrBadFormat);
}

TEST(Guid, NullGuidIsReadAndWritten) {
    GS::Guid guid;
    EXPECT_EQ(guid.ConvertFromString("00000000-0000-0000-0000-000000000000"), NoError);
    EXPECT_TRUE(guid.IsNull());
    EXPECT_EQ(utf8(guid.ToUniString()), "00000000-0000-0000-0000-000000000000");
}
