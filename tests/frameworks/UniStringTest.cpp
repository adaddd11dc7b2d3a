#include "Support.hpp"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

using GS::UniString;
using testing_support::units;

namespace {

constexpr Int64 Most = std::numeric_limits<Int64>::max();
constexpr Int64 Least = std::numeric_limits<Int64>::min();

// Longer than what stands in the object itself, so that memory is shared and grown.
const char* const LongText = "a text that is long enough to lie in a buffer of its own";

}  // namespace

TEST(UniString, SubstringIsClippedToTheText) {
    struct {
        Int64 from, count;
        const char* expected;
    } const cases[] = {{0, 3, "Fir"},
                       {4, 6, "Rating"},
                       {4, 100, "Rating"},
                       {4, Most, "Rating"},
                       {10, 1, ""},
                       {11, 1, ""},
                       {Most, Most, ""},
                       {0, 0, ""},
                       {0, -1, ""},
                       {3, -2, ""},
                       {3, Least, ""},
                       {-1, 3, "Fi"},
                       {-2, 100, "FireRating"},
                       {-5, 5, ""},
                       {-5, 3, ""},
                       {Least, Most, ""},
                       {9, 1, "g"}};
    for (const auto& each : cases)
        EXPECT_EQ(UniString("FireRating").GetSubstring(each.from, each.count), UniString(each.expected))
            << each.from << ' ' << each.count;
}

TEST(UniString, SearchCountsCodeUnitsAndAnswersMaxWhereThereIsNone) {
    const UniString text("a[b[c");
    EXPECT_EQ(text.FindFirst(u'['), 1U);
    EXPECT_EQ(text.FindFirst(u'[', 2), 3U);
    EXPECT_EQ(text.FindFirst(u'[', 4), MaxUIndex);
    EXPECT_EQ(text.FindFirst(u'[', 100), MaxUIndex);
    EXPECT_EQ(text.FindFirst(u'[', MaxUIndex), MaxUIndex);
    EXPECT_EQ(text.FindLast(u'['), 3U);
    EXPECT_EQ(text.FindLast(u'/'), MaxUIndex);
    EXPECT_EQ(text.FindFirst(UniString("b["), 0), 2U);
    EXPECT_EQ(text.FindFirst(UniString("b["), 3), MaxUIndex);
    EXPECT_EQ(UniString().FindFirst(u'x'), MaxUIndex);
}

TEST(UniString, SearchFindsHalfOfASurrogatePair) {
    EXPECT_EQ(UniString("\xF0\x9F\x8F\xA0").FindFirst(char16_t{0xDFE0}), 1U);
}

TEST(UniString, DeletionIsClippedToTheText) {
    struct {
        UIndex from;
        Int64 count;
        const char* expected;
    } const cases[] = {{0, 4, "Rating"},     {4, 6, "Fire"},        {4, Most, "Fire"},           {10, 1, "FireRating"},
                       {4, 0, "FireRating"}, {4, -3, "FireRating"}, {MaxUIndex, 1, "FireRating"}};
    for (const auto& each : cases)
        EXPECT_EQ(UniString("FireRating").Delete(each.from, each.count), UniString(each.expected)) << each.from;
    EXPECT_EQ(UniString("FireRating").DeleteFrom(4), UniString("Fire"));
}

TEST(UniString, InsertionPastTheEndAppends) {
    EXPECT_EQ(UniString("Wall").Insert(0, "IFC "), UniString("IFC Wall"));
    EXPECT_EQ(UniString("Wall").Insert(4, " 1"), UniString("Wall 1"));
    EXPECT_EQ(UniString("Wall").Insert(MaxUIndex, " 1"), UniString("Wall 1"));
}

TEST(UniString, TextCanBeAddedToItself) {
    for (const char* const original : {"short", LongText}) {
        UniString text(original);
        text.Append(text);
        EXPECT_EQ(text, UniString((std::string(original) + original).c_str()));
        UniString middle(original);
        middle.Insert(2, middle);
        EXPECT_EQ(middle.GetLength(), 2 * std::string(original).size());
    }
}

TEST(UniString, ReplacementGoesFromLeftToRightAndIsNotLookedAtAgain) {
    struct {
        const char *text, *pattern, *replacement, *expected;
    } const cases[] = {
        {"a\tb\t", "\t", " ", "a b "}, {"aaa", "aa", "b", "ba"}, {"aaa", "a", "aa", "aaaaaa"}, {"abc", "", "x", "abc"},
        {"abc", "b", "", "ac"},        {"abc", "x", "y", "abc"}, {"", "x", "y", ""},           {"abab", "ab", "", ""}};
    for (const auto& each : cases)
        EXPECT_EQ(UniString(each.text).ReplaceAll(each.pattern, each.replacement), UniString(each.expected))
            << each.text << ' ' << each.pattern;
}

TEST(UniString, ReplacementTakesItsOwnTextAsPattern) {
    UniString text(LongText);
    text.ReplaceAll(text, "x");
    EXPECT_EQ(text, UniString("x"));
}

TEST(UniString, CopyIsIndependent) {
    for (const char* const original : {"short", LongText}) {
        const UniString first(original);
        UniString second(first);
        second += "!";
        UniString third;
        third = first;
        third.Clear();
        EXPECT_EQ(first, UniString(original));
        EXPECT_TRUE(third.IsEmpty());
    }
}

TEST(UniString, WhatWasMovedFromIsEmptyAndUsable) {
    for (const char* const original : {"short", LongText}) {
        UniString source(original);
        UniString target(std::move(source));
        EXPECT_TRUE(source.IsEmpty());
        source += "again";
        EXPECT_EQ(source, UniString("again"));
        source = std::move(target);
        EXPECT_EQ(source, UniString(original));
        EXPECT_TRUE(target.IsEmpty());
        EXPECT_EQ(target += "x", UniString("x"));
    }
}

TEST(UniString, AssignmentToItselfKeepsTheText) {
    UniString text(LongText);
    UniString& same = text;
    text = same;
    text = std::move(same);
    EXPECT_EQ(text, UniString(LongText));
}

TEST(UniString, UnitPastTheEndIsNoCharacter) {
    EXPECT_EQ(UniString("ab")[1], u'b');
    EXPECT_EQ(UniString("ab")[2], char16_t{0xFFFF});
    EXPECT_EQ(UniString()[MaxUIndex], char16_t{0xFFFF});
}

TEST(UniString, ComparisonIsExact) {
    EXPECT_NE(UniString("Wall"), UniString("wall"));
    EXPECT_NE(UniString("Wall"), UniString("Wall "));
    EXPECT_NE(units(u"\u00E9"), units(u"e\u0301"));
    EXPECT_LT(UniString("A"), UniString("B"));
    EXPECT_FALSE(UniString() < UniString());
}

RC_GTEST_PROP(UniString, SubstringIsThatOfAPlainString, (const std::u16string& text, Int16 from, Int16 count)) {
    std::u16string expected;
    for (Int64 at = from; at < Int64{from} + count; ++at)
        if (at >= 0 && at < static_cast<Int64>(text.size())) expected += text[static_cast<std::size_t>(at)];
    RC_ASSERT(units(text).GetSubstring(from, count).View() == expected);
}

RC_GTEST_PROP(UniString, PiecesPutTogetherAreTheText, (const std::u16string& head, const std::u16string& tail)) {
    const UniString joined = units(head) + units(tail);
    RC_ASSERT(joined.View() == head + tail);
    UniString inserted = units(tail);
    inserted.Insert(0, units(head));
    RC_ASSERT(inserted == joined);
    inserted.Delete(0, static_cast<Int64>(head.size()));
    RC_ASSERT(inserted.View() == tail);
}

/// 20 units stand in the object, 21 do not.
TEST(UniString, TextsAsLongAsTheObjectHoldsAreCopiedChangedAndGrown) {
    for (const std::size_t length : {19U, 20U, 21U, 22U}) {
        std::u16string plain;
        for (std::size_t i = 0; i < length; ++i) plain += static_cast<char16_t>(u'a' + i);
        const UniString text = units(plain);
        EXPECT_EQ(text.View(), plain);
        UniString copy = text;
        copy.Append(units(u"!"));
        EXPECT_EQ(copy.View(), plain + u"!");
        copy.Delete(0, 3);
        EXPECT_EQ(copy.View(), plain.substr(3) + u"!");
        copy = text;
        copy.Insert(10, copy);
        EXPECT_EQ(copy.View(), plain.substr(0, 10) + plain + plain.substr(10));
        copy.DeleteFrom(static_cast<UIndex>(length));
        EXPECT_EQ(copy.GetLength(), length);
        const UniString moved = std::move(copy);
        EXPECT_EQ(moved.GetLength(), length);
        EXPECT_EQ(text.View(), plain);
        EXPECT_EQ(UniString(text.ToCStr()).View(), plain);
    }
}

TEST(UniString, OfManyBytesForOneUnitIsAsLongAsItsUnits) {
    // Ten euro signs are 30 bytes, which the object would not hold, and 10 units.
    std::string narrow;
    for (int i = 0; i < 10; ++i) narrow += "\u20AC";
    EXPECT_EQ(UniString(narrow.c_str()).View(), std::u16string(10, u'\u20AC'));
    for (int i = 0; i < 11; ++i) narrow += "\u20AC";
    EXPECT_EQ(UniString(narrow.c_str()).View(), std::u16string(21, u'\u20AC'));
}

/// Whatever is done to one of two texts, the other one stays, and both are what plain strings would be.
RC_GTEST_PROP(UniString, ChangesAreThoseOfPlainStrings,
              (const std::vector<std::tuple<int, std::uint8_t, std::uint8_t>>& steps)) {
    UniString texts[2];
    std::u16string plain[2];
    for (const auto& [what, a, b] : steps) {
        const std::size_t one = a % 2, other = 1 - one;
        UniString& text = texts[one];
        std::u16string& mirror = plain[one];
        const std::size_t from = std::min<std::size_t>(b % 32, mirror.size()), count = a / 2 % 16;
        switch (static_cast<unsigned>(what) % 8) {
            case 0:
                text.Append(texts[other]);
                mirror.append(plain[other]);
                break;
            case 1:
                text = texts[other];
                mirror = plain[other];
                break;
            case 2:
                text.Insert(static_cast<UIndex>(from), text);
                mirror.insert(from, std::u16string(mirror));
                break;
            case 3:
                text.Delete(static_cast<UIndex>(from), static_cast<Int64>(count));
                mirror.erase(from, count);
                break;
            case 4:
                text.Append(UniString(u"xyzzy", static_cast<USize>(count % 6)));
                mirror.append(std::u16string_view(u"xyzzy").substr(0, count % 6));
                break;
            case 5:
                text = std::move(texts[other]);
                mirror = std::exchange(plain[other], {});
                break;
            case 6:
                text.ReplaceAll(UniString("zz"), texts[other].GetSubstring(0, 3));
                if (const auto part = plain[other].substr(0, 3); mirror.find(u"zz") != mirror.npos) {
                    std::u16string result;
                    for (std::size_t at = 0; at < mirror.size();) {
                        const bool here = mirror.compare(at, 2, u"zz") == 0;
                        result += here ? part : mirror.substr(at, 1);
                        at += here ? 2 : 1;
                    }
                    mirror = result;
                }
                break;
            default:
                text = UniString(texts[other].ToCStr());
                mirror = plain[other];
        }
        if (mirror.size() > 2000) {
            text.Clear();
            mirror.clear();
        }
        RC_ASSERT(texts[0].View() == plain[0]);
        RC_ASSERT(texts[1].View() == plain[1]);
    }
}
