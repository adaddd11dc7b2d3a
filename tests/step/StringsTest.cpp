// Text as the clear-text encoding has it, and back.

#include "model/step/syntax/StringDecoder.hpp"
#include "model/step/syntax/StringEncoder.hpp"
#include "step/StepText.hpp"

#include <rapidcheck.h>

namespace step_tests {
namespace {

struct Text {
    std::string encoded;  ///< Without the quotes.
    std::u16string decoded;
    Decoding how = Decoding::Exact;
};

std::ostream& operator<<(std::ostream& out, const Text& text) {
    return out << text.encoded;
}

class Decode : public ::testing::TestWithParam<Text> {};

TEST_P(Decode, GivesTheTextAndHowItWasRead) {
    std::u16string out = u"left over";
    EXPECT_EQ(decodeString("'" + GetParam().encoded + "'", out), GetParam().how);
    EXPECT_EQ(out, GetParam().decoded);
}

constexpr Decoding Guessed = Decoding::Guessed;
constexpr Decoding Undecodable = Decoding::Undecodable;

INSTANTIATE_TEST_SUITE_P(Plain, Decode,
                         ::testing::Values(Text{"", u""}, Text{"Wall", u"Wall"}, Text{"it''s", u"it's"},
                                           Text{"''", u"'"}, Text{"C:\\\\a", u"C:\\a"}, Text{"\\\\X\\\\", u"\\X\\"},
                                           Text{"a\tb\nc", u"a\tb\nc"}));

INSTANTIATE_TEST_SUITE_P(
    Directives, Decode,
    ::testing::Values(Text{"\\X2\\00E9\\X0\\", u"\u00E9"}, Text{"\\X2\\00e900C4\\X0\\!", u"\u00E9\u00C4!"},
                      Text{"\\X2\\D83DDE00\\X0\\", u"\U0001F600"},
                      Text{"\\X2\\D83D\\X0\\\\X2\\DE00\\X0\\", u"\U0001F600"},
                      Text{"\\X4\\0001F6000000E9FF\\X0\\", u"\U0001F600\uE9FF"}, Text{"\\X\\E9", u"\u00E9"},
                      Text{"\\X\\e9x", u"\u00E9x"}, Text{"\\X\\80", u"\u0080"}, Text{"\\S\\i", u"\u00E9"},
                      Text{"\\S\\''", u"\u00A7"}, Text{"a\\S\\''''", u"a\u00A7'"}, Text{"\\S\\\\x", u"\u00DCx"},
                      Text{"\\PA\\\\S\\i", u"\u00E9"}, Text{"\\PB\\\\S\\1", u"\u0105"}, Text{"\\PE\\\\S\\8", u"\u0418"},
                      Text{"\\PG\\\\S\\a", u"\u03B1"}, Text{"\\PI\\\\S\\p", u"\u011F"},
                      Text{"\\PE\\\\PA\\\\S\\i", u"\u00E9"}, Text{"\\PE\\x", u"x"}));

INSTANTIATE_TEST_SUITE_P(
    Guesses, Decode,
    ::testing::Values(Text{"C:\\temp", u"C:\\temp", Guessed}, Text{"a\\", u"a\\", Guessed},
                      Text{"\\PJ\\", u"\\PJ\\", Guessed}, Text{"\\x2\\", u"\\x2\\", Guessed},
                      Text{"\xC3\xA9", u"\u00E9", Guessed}, Text{"\xF0\x9F\x98\x80", u"\U0001F600", Guessed},
                      Text{"\xE9t\xE9", u"\u00E9t\u00E9", Guessed}, Text{"\x80", u"\u20AC", Guessed},
                      Text{"\x81", u"\u0081", Guessed}, Text{"\xC3", u"\u00C3", Guessed},
                      Text{"\xC0\x80", u"\u00C0\u20AC", Guessed}, Text{"\xED\xA0\x80", u"\u00ED\u00A0\u20AC", Guessed},
                      Text{"\xF4\x90\x80\x80", u"\u00F4\u0090\u20AC\u20AC", Guessed},
                      Text{"\xE9\xC3\xA9", u"\u00E9\u00E9", Guessed}, Text{"\x7F", u"\u007F", Guessed}));

INSTANTIATE_TEST_SUITE_P(
    Undecodables, Decode,
    ::testing::Values(Text{"\\X2\\", u"\\X2\\", Undecodable}, Text{"\\X2\\\\X0\\", u"\\X2\\\\X0\\", Undecodable},
                      Text{"\\X2\\00E\\X0\\", u"\\X2\\00E\\X0\\", Undecodable},
                      Text{"\\X2\\00E9", u"\\X2\\00E9", Undecodable},
                      Text{"\\X2\\00G9\\X0\\", u"\\X2\\00G9\\X0\\", Undecodable},
                      Text{"\\X2\\D83D\\X0\\", u"\\X2\\D83D\\X0\\", Undecodable},
                      Text{"\\X2\\DE00D83D\\X0\\", u"\\X2\\DE00D83D\\X0\\", Undecodable},
                      Text{"\\X4\\00110000\\X0\\", u"\\X4\\00110000\\X0\\", Undecodable},
                      Text{"\\X4\\FFFFFFFF\\X0\\", u"\\X4\\FFFFFFFF\\X0\\", Undecodable},
                      Text{"\\X4\\0000D83D\\X0\\", u"\\X4\\0000D83D\\X0\\", Undecodable},
                      Text{"\\X4\\0001F60\\X0\\", u"\\X4\\0001F60\\X0\\", Undecodable},
                      Text{"\\X\\E", u"\\X\\E", Undecodable}, Text{"\\X\\", u"\\X\\", Undecodable},
                      Text{"\\X\\GG", u"\\X\\GG", Undecodable}, Text{"\\S\\", u"\\S\\", Undecodable},
                      Text{"\\S\\\n", u"\\S\\\n", Undecodable}, Text{"a\xE9\\X\\", u"a\u00E9\\X\\", Undecodable},
                      // ISO 8859-3 has no character there.
                      Text{"\\PC\\\\S\\%", u"\\PC\\\\S\\%", Undecodable}));

TEST(DecodeString, OfWhatIsNoStringIsUndecodable) {
    std::u16string out;
    for (const std::string_view text : {"", "'", "x", "'a", "$", "'a'b'"})
        EXPECT_EQ(decodeString(text, out), Undecodable) << text;
}

TEST(DecodeString, ForgetsTheCodePageOfTheStringBefore) {
    std::u16string out;
    decodeString("'\\PE\\\\S\\8'", out);
    EXPECT_EQ(decodeString("'\\S\\8'", out), Decoding::Exact);
    EXPECT_EQ(out, u"\u00B8");
}

TEST(DecodeString, ReadsOneTextFromAllItsSpellings) {
    std::u16string out;
    for (const std::string_view text :
         {"'\\X\\E9'", "'\\S\\i'", "'\\X2\\00E9\\X0\\'", "'\\X4\\000000E9\\X0\\'", "'\xC3\xA9'", "'\xE9'"}) {
        decodeString(text, out);
        EXPECT_EQ(out, u"\u00E9") << text;
    }
}

TEST(EncodeString, WritesAsciiPlainAndTheRestAsDirectives) {
    const std::vector<std::pair<std::u16string, std::string>> rows = {
        {u"", "''"},
        {u"Wall 1~", "'Wall 1~'"},
        {u"it's", "'it''s'"},
        {u"C:\\a", "'C:\\\\a'"},
        {u"\u00E9t\u00E9", "'\\X2\\00E9\\X0\\t\\X2\\00E9\\X0\\'"},
        {u"\u00E9\u20AC", "'\\X2\\00E920AC\\X0\\'"},
        {u"a\tb", "'a\\X2\\0009\\X0\\b'"},
        {u"\u007F", "'\\X2\\007F\\X0\\'"},
        {u"\U0001F600\U0001F601", "'\\X4\\0001F6000001F601\\X0\\'"},
        {u"\u00E9\U0001F600\u00E9", "'\\X2\\00E9\\X0\\\\X4\\0001F600\\X0\\\\X2\\00E9\\X0\\'"},
        {u"\u00E9'", "'\\X2\\00E9\\X0\\'''"},
    };
    for (const auto& [text, encoded] : rows) EXPECT_EQ(encodeString(text), encoded);
}

TEST(EncodeString, WritesHalfASurrogatePairAsReplacementCharacter) {
    EXPECT_EQ(encodeString(std::u16string(1, char16_t{0xD83D})), "'\\X2\\FFFD\\X0\\'");
    EXPECT_EQ(encodeString(std::u16string(1, char16_t{0xDE00})), "'\\X2\\FFFD\\X0\\'");
    EXPECT_EQ(encodeString(std::u16string{char16_t{0xD83D}, u'a'}), "'\\X2\\FFFD\\X0\\a'");
}

/// Texts of all kinds of characters, without lone surrogates.
rc::Gen<std::u16string> anyText() {
    const auto character =
        rc::gen::weightedOneOf<char32_t>({{4, rc::gen::inRange<char32_t>(32, 127)},
                                          {2, rc::gen::element(U'\'', U'\\', U'X', U'S', U'0', U'\n')},
                                          {1, rc::gen::inRange<char32_t>(0, 0xD800)},
                                          {1, rc::gen::inRange<char32_t>(0xE000, 0x110000)}});
    return rc::gen::map(rc::gen::container<std::u32string>(character), [](const std::u32string& text) {
        std::u16string units;
        for (const char32_t c : text) {
            if (c > 0xFFFF) units.push_back(static_cast<char16_t>(0xD7C0 + (c >> 10U)));
            units.push_back(c > 0xFFFF ? static_cast<char16_t>(0xDC00 + (c & 0x3FFU)) : static_cast<char16_t>(c));
        }
        return units;
    });
}

TEST(Strings, ReadBackAsTheyWereWritten) {
    EXPECT_TRUE(rc::check([] {
        const std::u16string text = *anyText();
        const std::string encoded = encodeString(text);
        for (const char c : encoded) RC_ASSERT(c >= 32 && c <= 126);
        std::u16string back;
        RC_ASSERT(decodeString(encoded, back) == Decoding::Exact);
        RC_ASSERT(back == text);
    }));
}

TEST(Strings, AreOneTokenWhateverTheyHold) {
    EXPECT_TRUE(rc::check([] {
        const std::string encoded = encodeString(*anyText());
        const std::string text = "#1=A(" + encoded + ",$);";
        Instance instance;
        RC_ASSERT(splitInstance(text, instance));
        RC_ASSERT(instance.arguments.size() == 2U);
        RC_ASSERT(instance.arguments[0].text == encoded);
    }));
}

TEST(Strings, OfAnyBytesAreDecodedSomehow) {
    EXPECT_TRUE(rc::check([](const std::string& bytes) {
        std::u16string out;
        const Decoding how = decodeString("'" + bytes + "'", out);
        // What was decoded has a spelling that reads as the same text.
        std::u16string again;
        if (how != Decoding::Undecodable) RC_ASSERT(decodeString(encodeString(out), again) == Decoding::Exact);
        if (how != Decoding::Undecodable) RC_ASSERT(again == out);
    }));
}

}  // namespace
}  // namespace step_tests
