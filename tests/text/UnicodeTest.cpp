#include "text/Unicode.hpp"

#include <gtest/gtest.h>

using namespace std::string_view_literals;

TEST(Unicode, EveryCharacterGoesToUtf8AndBack) {
    for (text::Character c = 0; c <= 0x10FFFF; ++c) {
        if (c >= 0xD800 && c <= 0xDFFF) continue;
        std::u16string utf16;
        text::appendCharacter(utf16, c);
        std::string utf8;
        text::appendCharacter(utf8, c);
        std::size_t behind8 = 0, behind16 = 0;
        ASSERT_EQ(text::nextCharacter(utf8, behind8), c);
        ASSERT_EQ(text::nextCharacter(utf16, behind16), c);
        ASSERT_EQ(behind8, utf8.size());
        ASSERT_EQ(behind16, utf16.size());
        ASSERT_EQ(text::toUtf8(utf16), utf8);
        ASSERT_EQ(text::fromUtf8(utf8), utf16);
        ASSERT_EQ(text::characterCount(utf16), 1U);
    }
}

TEST(Unicode, HalfAPairBecomesTheReplacementCharacter) {
    EXPECT_EQ(text::toUtf8(u"a\xD800z"), "a\uFFFDz");
    EXPECT_EQ(text::toUtf8(u"\xDC00\xD800"), "\uFFFD\uFFFD");
    EXPECT_EQ(text::toUtf8(u"a\xD83C"), "a\uFFFD");
    EXPECT_FALSE(text::isWellFormed(u"a\xD800z"sv));
    EXPECT_FALSE(text::isWellFormed(u"\xDC00"sv));
    EXPECT_FALSE(text::isWellFormed(u"a\xD83C"sv));
    EXPECT_TRUE(text::isWellFormed(u"\xD83C\xDFE0"sv));
    EXPECT_EQ(text::characterCount(u"a\xD83C\xDFE0\xD83C"), 3U);
}

TEST(Unicode, ZeroIsACharacter) {
    EXPECT_EQ(text::toUtf8(u"a\0b"sv), "a\0b"sv);
    EXPECT_EQ(text::fromUtf8("a\0b"sv), u"a\0b"sv);
    EXPECT_TRUE(text::isWellFormed("a\0b"sv));
}

TEST(Unicode, IllFormedBytesAreFoundAndReplaced) {
    // A lone continuation, a cut sequence, an overlong form, a surrogate, a number above the last character, no UTF-8.
    for (const auto bytes : {"\x80"sv, "\xE2\x82"sv, "\xC0\xAF"sv, "\xED\xA0\x80"sv, "\xF4\x90\x80\x80"sv, "\xFF"sv}) {
        const std::string text = "a" + std::string(bytes) + "z";
        EXPECT_FALSE(text::isWellFormed(text)) << text;
        const std::string replaced = text::wellFormed(text);
        EXPECT_TRUE(text::isWellFormed(replaced)) << text;
        EXPECT_EQ(replaced.front(), 'a');
        EXPECT_EQ(replaced.back(), 'z');
        EXPECT_EQ(text::toUtf8(text::fromUtf8(text)), replaced);
    }
    EXPECT_EQ(text::wellFormed("a\xE2\x82z"), "a\uFFFDz");
    EXPECT_EQ(text::wellFormed("\xE2\x82\xAC"), "\xE2\x82\xAC");
}
