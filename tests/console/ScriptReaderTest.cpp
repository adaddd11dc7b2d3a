#include "console/script/ScriptReader.hpp"

#include "support/TempFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace console {
namespace {

using testing::HasSubstr;

class ScriptOfOneLine : public testing::Test {
protected:
    std::optional<Step> read(const std::string& text) {
        reader_.emplace(folder_.write("steps.jsonl", text));
        return reader_->next();
    }

    testing_support::TempFolder folder_;
    std::optional<ScriptReader> reader_;
};

std::string nested(std::size_t levels) {
    // The object itself is the first level.
    return "{\"menus\":" + std::string(levels - 1, '[') + std::string(levels - 1, ']') + "}\n";
}

TEST_F(ScriptOfOneLine, MayBeNestedToTheLimitAndNoDeeper) {
    const std::size_t limit = ScriptReader::DeepestNesting;
    EXPECT_EQ(read(nested(limit - 1))->error, "");
    EXPECT_EQ(read(nested(limit))->error, "");
    EXPECT_EQ(read(nested(limit + 1))->error, "a step has at most 100 levels of brackets");
    EXPECT_EQ(read(nested(100'000))->error, "a step has at most 100 levels of brackets");
    EXPECT_EQ(read(std::string(100'000, '[') + "\n")->error, "a step has at most 100 levels of brackets");
}

TEST_F(ScriptOfOneLine, CountsOnlyTheBracketsOutsideOfTexts) {
    const auto step = read(R"({"file":")" + std::string(200, '[') + R"(\"[\\"})" + "\n");
    EXPECT_EQ(step->error, "");
    EXPECT_EQ(step->object["file"], std::string(200, '[') + "\"[\\");
}

TEST_F(ScriptOfOneLine, MayBeAsLongAsTheLimitAndNoLonger) {
    const std::size_t limit = ScriptReader::LongestLine;
    for (const std::size_t length : {limit - 1, limit}) {
        EXPECT_TRUE(read(std::string(length, ' ') + "\n{\"menus\":true}\n")) << length;
        EXPECT_FALSE(reader_->failure());
    }
    EXPECT_FALSE(read("\n" + std::string(limit + 1, ' ') + "\n{\"menus\":true}\n"));
    EXPECT_THAT(reader_->failure().value_or(""), HasSubstr("cannot read line 2 of the steps"));
    EXPECT_THAT(reader_->failure().value_or(""), HasSubstr("longer than 1048576 bytes"));
    EXPECT_FALSE(reader_->next()) << "nothing comes behind it";
}

TEST_F(ScriptOfOneLine, MayLackItsLineEnd) {
    EXPECT_EQ(read("{\"menus\":true}")->object["menus"], true);
    EXPECT_FALSE(reader_->next());
    EXPECT_FALSE(reader_->failure());
}

TEST(ScriptReader, TellsAReadErrorFromTheEnd) {
    // It opens, but nothing is mapped at the address 0, where reading begins.
    ScriptReader reader("/proc/self/mem");
    EXPECT_FALSE(reader.next());
    EXPECT_THAT(reader.failure().value_or(""), HasSubstr("line 1 of the steps in /proc/self/mem: Input/output error"));
}

}  // namespace
}  // namespace console
