// Every number that the reader or the writer draws a line at: on it, one below, one above.

#include "model/step/syntax/StringDecoder.hpp"
#include "model/step/syntax/StringEncoder.hpp"
#include "step/StepText.hpp"

#include <limits>

namespace step_tests {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr InstanceId LargestId = std::numeric_limits<std::int64_t>::max();

TEST(NewId, GoesUpToTheLargestSignedNumberOf64Bits) {
    for (const InstanceId room : {0U, 1U, 2U, 3U}) {
        Editing edit(fileOf("#1=A();\n#" + std::to_string(LargestId - room) + "=A();\n"));
        for (InstanceId id = LargestId - room + 1; id <= LargestId; ++id) {
            const auto slot = edit.append("B()", 1);
            ASSERT_TRUE(slot) << slot.error().message;
            EXPECT_EQ(edit.file->id(*slot), id);
            EXPECT_EQ(edit.file->find(id), *slot);
        }
        EXPECT_FALSE(edit.append("B()", 1)) << room;
        EXPECT_EQ(opened(edit.file->bytes())->slotCount(), 2 + room);
    }
}

TEST(Ids, OfAnyNumberOfDigitsAreOne) {
    for (std::size_t digits = 1; digits <= 20; ++digits) {
        // 18446744073709551615 is the largest; 20 nines are none.
        const std::string id = digits == 20 ? "18446744073709551615" : std::string(digits, '9');
        for (const std::string zeros : {"", "0", "000000000000000000000"}) {
            const auto file = opened(fileOf("#" + zeros + id + "=A(#" + id + ");\n#1=B();\n"));
            EXPECT_THAT(remarks(*file), IsEmpty()) << zeros << id;
            EXPECT_EQ(file->find(std::stoull(id)), 0U) << zeros << id;
            EXPECT_EQ(referenceId(argument(*file, std::stoull(id), 0)), std::stoull(id));
        }
    }
    EXPECT_EQ(opened(fileOf("#99999999999999999999=A();\n#1=B();\n"))->slotCount(), 1U);
}

/// Ids up to a bound that grows with the file are kept in a table, the others in a list.
TEST(Ids, AroundTheSizeOfTheTableAreFoundAndRemarkedAlike) {
    const std::uint64_t limit = opened(fileOf("#1000=A();\n#1000=B();\n"))->byteCount() / 8 + 64;
    for (InstanceId id = limit - 40; id <= limit + 40; ++id) {
        const std::string number = std::to_string(id);
        const auto file = opened(fileOf("#" + number + "=A();\n"));
        EXPECT_EQ(file->find(id), 0U) << id;
        EXPECT_EQ(file->find(id + 1), NoSlot) << id;
        EXPECT_EQ(file->find(id - 1), NoSlot) << id;
        const auto twice = opened(fileOf("#" + number + "=A();\n#0" + number + "=B();\n"));
        EXPECT_EQ(twice->find(id), NoSlot) << id;
        EXPECT_EQ(twice->remarks().size(), 1U) << id;
    }
}

TEST(Remarks, AreCountedBeyondTheFirstThousand) {
    const std::pair<int, std::size_t> table[] = {{999, 999}, {1000, 1000}, {1001, 1001}, {1002, 1001}};
    for (const auto& [faults, expected] : table) {
        std::string data;
        for (int i = 1; i <= faults; ++i) data += "#" + std::to_string(i) + "=A(1\n";
        const auto told = remarks(*opened(fileOf(data)));
        EXPECT_EQ(told.size(), expected);
        if (faults > 1000)
            EXPECT_EQ(told.back(), "0: and " + std::to_string(faults - 1000) + " more remarks like these");
        else
            EXPECT_THAT(told.back(), ::testing::Not(::testing::HasSubstr("more remarks")));
    }
}

/// Files are read 64 bytes at a time; where a string, an instance or a comment ends in a block must not matter.
TEST(Blocks, AreNoLimitForWhatStandsAcrossTheirEnds) {
    for (std::size_t length = 0; length <= 140; ++length) {
        const std::string filler(length, 'x');
        for (const std::string odd : {"''", "'';#9=B();''", "/*", "*/", ");", "\\S\\''"}) {
            const std::string first = "#1=A('" + filler + odd + "');", second = "#2=B(#1,'" + odd + "'/*'*/);";
            const auto file = opened(fileOf(first + second + "\n#3=C();\n"));
            ASSERT_THAT(instances(*file), ElementsAre(first, second, "#3=C();")) << length << " " << odd;
            ASSERT_THAT(remarks(*file), IsEmpty());
        }
        const auto open = opened(fileOf("#1=A('" + filler + "');\n#2=B('" + filler + ");\n#3=C('x');\n"));
        ASSERT_THAT(instances(*open), ElementsAre("#1=A('" + filler + "');", "#3=C('x');")) << length;
    }
}

/// Longer instances are read by other code.
TEST(LongInstances, AroundTheLengthReadInBlocksAreFoundLikeShortOnes) {
    constexpr std::size_t longest = 1U << 16U;
    for (std::size_t length = longest - 130; length <= longest + 130; length += 5) {
        const std::string longOne = "#2=A('" + std::string(length, ';') + "');";
        Editing edit(fileOf("#1=B(1);\n" + longOne + "\n#3=C(3);\n"));
        ASSERT_THAT(instances(*edit.file), ElementsAre("#1=B(1);", longOne, "#3=C(3);")) << length;
        ASSERT_TRUE(edit.replace(3, 0, "4"));
        ASSERT_EQ(dataOf(edit.file->bytes()), "#1=B(1);\n" + longOne + "\n#3=C(4);\n");
    }
}

TEST(Directives, OfTheLargestCharactersAreTheLastThatAreRead) {
    std::u16string out;
    EXPECT_EQ(decodeString("'\\X4\\0010FFFF\\X0\\'", out), Decoding::Exact);
    EXPECT_EQ(out, u"\U0010FFFF");
    EXPECT_EQ(encodeString(out), "'\\X4\\0010FFFF\\X0\\'");
    EXPECT_EQ(decodeString("'\\X4\\00110000\\X0\\'", out), Decoding::Undecodable);
    EXPECT_EQ(decodeString("'\\X4\\0000D7FF0000E000\\X0\\'", out), Decoding::Exact);
    EXPECT_EQ(decodeString("'\\X4\\0000D800\\X0\\'", out), Decoding::Undecodable);
    EXPECT_EQ(decodeString("'\\X4\\0000DFFF\\X0\\'", out), Decoding::Undecodable);
    for (const char16_t unit : {u'\u001F', u' ', u'~', u'\u007F', u'\uD7FF', u'\uE000', u'\uFFFF'}) {
        const std::u16string text(3, unit);
        EXPECT_EQ(decodeString(encodeString(text), out), Decoding::Exact);
        EXPECT_EQ(out, text);
        EXPECT_EQ(encodeString(text).find("\\X2\\") == std::string::npos, unit >= u' ' && unit <= u'~');
    }
}

}  // namespace
}  // namespace step_tests
