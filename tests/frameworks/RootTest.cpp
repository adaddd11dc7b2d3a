#include "GSException.hpp"
#include "GSRoot.hpp"
#include "Support.hpp"

#include <gtest/gtest.h>

#include <cstring>

using testing_support::utf8;

TEST(CHTruncate, CutsAtTheSizeAndNeverInsideASequence) {
    struct {
        const char* source;
        USize size;
        const char* expected;
    } const cases[] = {{"abc", 4, "abc"},
                       {"abc", 100, "abc"},
                       {"abc", 3, "ab"},
                       {"abc", 1, ""},
                       {"", 5, ""},
                       {"ab\xC3\xBC", 5, "ab\xC3\xBC"},
                       {"ab\xC3\xBC", 4, "ab"},
                       {"ab\xC3\xBC", 3, "ab"},
                       {"a\xE2\x82\xAC", 4, "a"},
                       {"a\xE2\x82\xAC", 3, "a"},
                       {"a\xF0\x9F\x8F\xA0z", 6, "a\xF0\x9F\x8F\xA0"},
                       {"a\xF0\x9F\x8F\xA0z", 5, "a"},
                       {"a\xF0\x9F\x8F\xA0z", 4, "a"},
                       {"a\xF0\x9F\x8F\xA0z", 3, "a"},
                       {"\xC3\xBC", 2, ""},
                       {"\xC3\xBC\xC3\xBC", 4, "\xC3\xBC"},
                       {"a\xE9tage", 3, "a\xE9"},
                       {"\x80\x80\x80\x80\x80", 4, "\x80\x80\x80"}};
    for (const auto& each : cases) {
        std::string target(each.size + 1, '#');
        CHTruncate(each.source, target.data(), each.size);
        EXPECT_STREQ(target.c_str(), each.expected) << each.source << ' ' << each.size;
        EXPECT_EQ(target.back(), '#') << "nothing is written past the size";
    }
}

TEST(CHTruncate, WritesNothingIntoNoRoomAndAnEmptyTextForNull) {
    char target[] = "##";
    CHTruncate("abc", target, 0);
    EXPECT_STREQ(target, "##");
    CHTruncate(nullptr, target, sizeof target);
    EXPECT_STREQ(target, "");
}

TEST(BNFillMemory, FillsExactlyTheBytesAskedFor) {
    unsigned char bytes[4] = {1, 2, 3, 4};
    BNFillMemory(bytes + 1, 2, 0xFF);
    EXPECT_EQ(bytes[0], 1);
    EXPECT_EQ(bytes[1], 0xFF);
    EXPECT_EQ(bytes[2], 0xFF);
    EXPECT_EQ(bytes[3], 4);
    BNFillMemory(nullptr, 0, 7);
}

TEST(Beep, GoesToTheFrontEndThatAsksForIt) {
    int beeps = 0;
    const frontend::BeepSink before = frontend::setBeepSink([&beeps] { ++beeps; });
    GSSysBeep();
    GSSysBeep();
    frontend::setBeepSink(before);
    GSSysBeep();
    EXPECT_EQ(beeps, 2);
}

namespace {

int starts = 0;

GSErrCode startHook() {
    if (GSRoot_DelayInitImage(startHook)) return NoError;
    ++starts;
    return NoError;
}

}  // namespace

TEST(ImageStart, IsNotDelayedByItself) {
    starts = 0;
    startHook();
    EXPECT_EQ(starts, 1);
}

TEST(ImageStart, DelayedHookRunsExactlyOnce) {
    starts = 0;
    frontend::deferImageStarts(true);
    startHook();
    startHook();
    EXPECT_EQ(starts, 0);
    frontend::runDelayedStarts();
    EXPECT_EQ(starts, 1);
    frontend::runDelayedStarts();
    startHook();
    EXPECT_EQ(starts, 2) << "nothing is delayed any more";
}

TEST(Exception, CarriesItsMessage) {
    try {
        throw GS::GSException("no room");
    } catch (const GS::GSException& caught) {
        const GS::GSException copy = caught;
        EXPECT_EQ(utf8(copy.GetMessage()), "no room");
    }
}

TEST(Help, LocationIsThereFromItsRegistrationToItsEnd) {
    const IO::Location folder("/opt/add-ons"), nothing;
    const auto add = [](Int32 id, const IO::Location* location) {
        return DG::RegisterAdditionalHelpLocation(0x58703953, id, location, nullptr, nullptr, nullptr, nullptr);
    };
    EXPECT_FALSE(add(1, nullptr));
    EXPECT_FALSE(add(1, &nothing));
    EXPECT_TRUE(add(-1312990621, &folder));
    EXPECT_FALSE(add(-1312990621, &folder)) << "the pair is registered already";
    EXPECT_TRUE(add(1, &folder));
    const auto locations = frontend::helpLocations();
    ASSERT_EQ(locations.size(), 2U);
    EXPECT_EQ(locations[0].developerId, 0x58703953U);
    EXPECT_EQ(locations[0].localId, -1312990621);
    EXPECT_EQ(locations[0].path, "/opt/add-ons");
    EXPECT_TRUE(DG::UnregisterAdditionalHelpLocation(0x58703953, -1312990621));
    EXPECT_FALSE(DG::UnregisterAdditionalHelpLocation(0x58703953, -1312990621));
    EXPECT_TRUE(DG::UnregisterAdditionalHelpLocation(0x58703953, 1));
    EXPECT_TRUE(frontend::helpLocations().empty());
}
