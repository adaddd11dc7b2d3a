#include "tables/UpdateFiles.hpp"

#include "tables/Workbooks.hpp"

#include <gtest/gtest.h>

namespace tables {
namespace {

AskedUpdate update(const std::string& item, std::optional<std::string> old, const std::string& value) {
    return {Door, item, std::move(old), value, 1, "A", false};
}

TEST(UpdateFiles, HaveFourFieldsALine) {
    const std::vector<AskedUpdate> updates{update("A", "old", "new"), update("B[C]", std::nullopt, " 007 "),
                                           update("D", "", "")};
    const auto files = writeUpdateFiles(updates);
    ASSERT_EQ(files.size(), 1U);
    const std::string guid = Door;
    EXPECT_EQ(files[0].text, guid + "\tA\told\tnew\n" + guid + "\tB[C]\t\t 007 \n" + guid + "\tD\t\t\n");
}

TEST(UpdateFiles, AreAsManyAsTheListHasPlaceFor) {
    for (const auto& [count, expected] :
         {std::pair{0U, 0U}, {1U, 1U}, {32766U, 1U}, {32767U, 1U}, {32768U, 2U}, {65535U, 3U}}) {
        const std::vector<AskedUpdate> updates(count, update("A", "1", "2"));
        const auto files = writeUpdateFiles(updates);
        EXPECT_EQ(files.size(), expected) << count;
        std::size_t next = 0;
        for (const UpdateFile& file : files) {
            EXPECT_EQ(file.first, next);
            EXPECT_EQ(static_cast<std::size_t>(std::count(file.text.begin(), file.text.end(), '\n')), file.count);
            EXPECT_LE(file.count, MostRowsOfAList);
            next += file.count;
        }
        EXPECT_EQ(next, count);
    }
}

TEST(UpdateFiles, HaveNoLineAboveTheLimit) {
    const std::string value(2047 - 36 - 1 - 3 - 3, 'x');
    const auto lineOf = [&](const std::string& old) {
        return writeUpdateFiles(std::vector{update("A", old, value)})[0].text.size() - 1;
    };
    EXPECT_EQ(lineOf("ab"), 2046U);
    EXPECT_EQ(lineOf("abc"), 2047U);
    EXPECT_EQ(lineOf("abcd"), 2043U + 1U);
}

TEST(UpdateFiles, LeaveAnOldValueEmptyThatWouldBreakTheLine) {
    EXPECT_EQ(writeUpdateFiles(std::vector{update("A", "a\tb", "c")})[0].text, std::string(Door) + "\tA\t\tc\n");
}

TEST(UpdateFiles, SayWhatNoLineCanHold) {
    const std::string longest(2047 - 36 - 1 - 3, 'x');
    EXPECT_EQ(obstacleOf(update("A", "old", longest)), std::nullopt);
    EXPECT_EQ(obstacleOf(update("A", "old", longest + "x")),
              "GUID, item and value together are longer than the 2047 bytes of a line; shorten the value");
    for (const char breaker : {'\t', '\r', '\n', '\0'})
        EXPECT_EQ(obstacleOf(update("A", "old", std::string("a") + breaker)),
                  "it holds a zero byte or a line end, which no line can hold; remove it");
}

}  // namespace
}  // namespace tables
