#include "tables/reading/Encoding.hpp"

#include <gtest/gtest.h>

namespace tables {
namespace {

using namespace std::string_literals;

/// Each character of ASCII or Latin 1 as two bytes.
std::string widened(std::string_view text, bool bigEndian) {
    std::string bytes;
    for (const char c : text) bytes += bigEndian ? "\0"s + c : c + "\0"s;
    return bytes;
}

struct Encoded {
    const char* what;
    std::string bytes;
    std::string encoding;
};

void PrintTo(const Encoded& row, std::ostream* out) {
    *out << row.what;
}

class TextOfAnyEncoding : public testing::TestWithParam<Encoded> {};

TEST_P(TextOfAnyEncoding, IsFoundAndDecoded) {
    const auto decoded = decode(GetParam().bytes);
    ASSERT_TRUE(decoded) << decoded.error().message;
    EXPECT_EQ(decoded->text, "GUID,Türe\n");
    EXPECT_EQ(decoded->encoding, GetParam().encoding);
}

INSTANTIATE_TEST_SUITE_P(
    Encoding, TextOfAnyEncoding,
    testing::Values(Encoded{"UTF-8", "GUID,Türe\n", "UTF-8"},
                    Encoded{"UTF-8 with mark", "\xEF\xBB\xBFGUID,Türe\n", "UTF-8"},
                    Encoded{"UTF-16LE with mark", "\xFF\xFE" + widened("GUID,T\xFCre\n", false), "UTF-16LE"},
                    Encoded{"UTF-16BE with mark", "\xFE\xFF" + widened("GUID,T\xFCre\n", true), "UTF-16BE"},
                    Encoded{"UTF-16LE", widened("GUID,T\xFCre\n", false), "UTF-16LE"},
                    Encoded{"UTF-16BE", widened("GUID,T\xFCre\n", true), "UTF-16BE"},
                    Encoded{"UTF-32LE with mark",
                            "\xFF\xFE\0\0G\0\0\0U\0\0\0I\0\0\0D\0\0\0,\0\0\0T\0\0\0\xFC\0\0\0r\0\0\0e\0\0\0\n\0\0\0"s,
                            "UTF-32LE"},
                    Encoded{"Windows-1252", "GUID,T\xFCre\n", "Windows-1252"}));

TEST(Encoding, OfJapaneseTextInUtf16IsFoundByItsDelimitersAndLineEnds) {
    std::string bytes = widened("GUID,", false);
    for (int i = 0; i < 20; ++i) bytes += "\x8C\x54\xA4\x5B";
    bytes += widened("\r\n", false);
    const auto decoded = decode(bytes);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->encoding, "UTF-16LE");
    EXPECT_TRUE(decoded->text.starts_with("GUID,和室"));
}

TEST(Encoding, OfUtf8WithAStrayZeroStaysUtf8) {
    const auto decoded = decode("GUID,a\0b,cccccccccccccccccccccccccccccccccccc\n"s);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->encoding, "UTF-8");
}

TEST(Encoding, MayBeNamedInAnyCase) {
    for (const char* name : {"windows-1252", "Windows-1252", "cp1252", "ISO-8859-1"}) {
        const auto decoded = decode("T\xFCr", name);
        ASSERT_TRUE(decoded) << name;
        EXPECT_EQ(decoded->text, "Tür") << name;
    }
    EXPECT_EQ(decode("T\xFCr", "WINDOWS-1252")->encoding, "Windows-1252");
    EXPECT_EQ(decode("\xEF\xBB\xBFT", "utf-8")->text, "T");
    EXPECT_EQ(decode("\xFF\xFET\0"s, "utf-16le")->text, "T");
}

TEST(Encoding, ThatNobodyKnowsIsRefused) {
    EXPECT_EQ(decode("x", "latin99").error().message,
              "no encoding is called 'latin99'; try utf-8, utf-16le or windows-1252");
}

TEST(Encoding, ThatTheBytesAreNotOfIsRefusedWithTheLine) {
    EXPECT_EQ(decode("GUID\r\nT\xFCr", "utf-8").error().message,
              "line 2: bytes that are not UTF-8; name the encoding, or save the file as UTF-8");
    EXPECT_EQ(decode("\xEF\xBB\xBFGUID\rx\n\xFC", "").error().message,
              "line 3: bytes that are not UTF-8; name the encoding, or save the file as UTF-8");
    EXPECT_EQ(decode("a\n\x81\x20", "shift_jis").error().message,
              "line 2: bytes that are not shift_jis; name the encoding, or save the file as UTF-8");
}

TEST(Encoding, OfALongTextIsDecodedWhole) {
    std::string text;
    for (int i = 0; i < 20000; ++i) text += "T\xFCr\n";
    const auto decoded = decode(text);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->text.size(), text.size() + 20000);
}

}  // namespace
}  // namespace tables
