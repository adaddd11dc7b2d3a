#include "Support.hpp"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>

using testing_support::units;
using testing_support::utf8;

namespace {

constexpr std::array<char16_t, 32> Windows1252From80 = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                                        0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                        0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

char16_t expectedUnit(unsigned byte) {
    return byte >= 0x80 && byte < 0xA0 ? Windows1252From80[byte - 0x80] : static_cast<char16_t>(byte);
}

struct NarrowCase {
    const char* what;
    std::string_view bytes;
    std::u16string_view text;
};

constexpr NarrowCase NarrowCases[] = {
    {"ASCII", "Wall 1", u"Wall 1"},
    {"two bytes", "Gr\xC3\xBC\xC3\x9F", u"Grüß"},
    {"three bytes", "\xE2\x82\xAC", u"€"},
    {"four bytes", "\xF0\x9F\x8F\xA0", u"\U0001F3E0"},
    {"the last code point", "\xF4\x8F\xBF\xBF", u"\U0010FFFF"},
    {"a byte-order mark is a character", "\xEF\xBB\xBFg", u"\uFEFFg"},
    {"Latin letters without UTF-8", "Gr\xFC\xDF", u"Grüß"},
    {"a Latin letter before an ASCII one", "\xE9t", u"ét"},
    {"UTF-8 and Latin mixed", "\xC3\xBC\xFC", u"üü"},
    {"a sequence cut after one of two bytes", "a\xC3", u"aÃ"},
    {"a sequence cut after one of three bytes", "\xE2", u"â"},
    {"a sequence cut after two of three bytes", "\xE2\x82", u"â‚"},
    {"a sequence cut after three of four bytes", "\xF0\x9F\x8F", u"ðŸ\u008F"},
    {"a cut sequence before a whole one", "\xE2\x82\xC3\xBC", u"â‚ü"},
    {"a continuation byte alone", "\x80", u"€"},
    {"an overlong slash of two bytes", "\xC0\xAF", u"À¯"},
    {"an overlong slash of three bytes", "\xE0\x80\xAF", u"à€¯"},
    {"an overlong sequence of four bytes", "\xF0\x80\x80\x80", u"ð€€€"},
    {"an encoded surrogate", "\xED\xA0\x80", u"í\u00A0€"},
    {"beyond the last code point", "\xF4\x90\x80\x80", u"ô\u0090€€"},
    {"bytes that UTF-8 never uses", "\xFE\xFF", u"þÿ"},
};

}  // namespace

TEST(NarrowText, EachByteAloneIsReadAsWindows1252) {
    for (unsigned byte = 1; byte < 256; ++byte) {
        const char narrow[] = {static_cast<char>(byte), '\0'};
        const GS::UniString text(narrow);
        ASSERT_EQ(text.GetLength(), 1U) << byte;
        EXPECT_EQ(text[0], expectedUnit(byte)) << byte;
    }
}

TEST(NarrowText, ZeroByteIsACharacterWhereTheLengthIsGiven) {
    EXPECT_EQ(GS::UniString("a\0b", 3).View(), std::u16string_view(u"a\0b", 3));
}

TEST(NarrowText, IsReadByOneRule) {
    for (const NarrowCase& each : NarrowCases) {
        const std::string bytes(each.bytes);
        EXPECT_EQ(GS::UniString(bytes.c_str()).View(), each.text) << each.what;
        EXPECT_EQ(GS::UniString(bytes.data(), static_cast<USize>(bytes.size())).View(), each.text) << each.what;
        GS::UniString assigned("before");
        assigned = bytes.c_str();
        EXPECT_EQ(assigned.View(), each.text) << each.what;
    }
}

TEST(NarrowText, NullIsAnEmptyText) {
    const char* const none = nullptr;
    EXPECT_TRUE(GS::UniString(none).IsEmpty());
    EXPECT_TRUE(GS::UniString(none, 3).IsEmpty());
    GS::UniString assigned("before");
    assigned = none;
    EXPECT_TRUE(assigned.IsEmpty());
}

TEST(NarrowText, UnpairedSurrogateIsWrittenAsReplacementCharacter) {
    EXPECT_EQ(utf8(units(u"a\xD83C")), "a\xEF\xBF\xBD");
    EXPECT_EQ(utf8(units(u"\xDFE0z")), "\xEF\xBF\xBDz");
}

TEST(NarrowText, CopyHoldsTextsAroundTheRoomThatItHasInside) {
    for (std::size_t length = 115; length < 130; ++length) {
        const std::string ascii(length, 'x');
        EXPECT_EQ(utf8(ascii.c_str()), ascii);
        EXPECT_EQ(utf8(units(std::u16string(length, u'€'))).size(), 3 * length);
    }
}

RC_GTEST_PROP(NarrowText, Utf8ComesBackAsItWas, ()) {
    std::string text;
    for (const auto codePoint : *rc::gen::container<std::vector<char32_t>>(rc::gen::inRange<char32_t>(1, 0xD800)))
        text += utf8(units(std::u16string(1, static_cast<char16_t>(codePoint))));
    RC_ASSERT(utf8(text.c_str()) == text);
}

RC_GTEST_PROP(NarrowText, AnyBytesGiveATextThatComesBackAsItself, (const std::string& bytes)) {
    const GS::UniString text(bytes.data(), static_cast<USize>(bytes.size()));
    const std::string narrow = utf8(text);
    const std::u16string_view untilZero = text.View().substr(0, text.View().find(u'\0'));
    RC_ASSERT(GS::UniString(narrow.c_str()).View() == untilZero);
}
