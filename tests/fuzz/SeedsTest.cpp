// The seeds of the fuzzers, and what they found once, as plain tests.

#include "fuzz/Checks.hpp"
#include "support/Places.hpp"
#include "support/TempFolder.hpp"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

namespace fs = std::filesystem;

int checkAll(const char* folder, void (*check)(std::string_view)) {
    int count = 0;
    for (const auto& entry : fs::directory_iterator(testing_support::projectFile("tests/fuzz/seeds") / folder)) {
        EXPECT_NO_THROW(check(testing_support::bytesOf(entry.path()))) << entry.path();
        ++count;
    }
    return count;
}

TEST(FuzzSeeds, FilesPass) {
    EXPECT_GT(checkAll("files", fuzz::checkStepFile), 0);
}
TEST(FuzzSeeds, StringsPass) {
    EXPECT_GT(checkAll("strings", fuzz::checkString), 0);
}
TEST(FuzzSeeds, TablesPass) {
    EXPECT_GT(checkAll("tables", fuzz::checkTable), 0);
}
TEST(FuzzSeeds, SheetsPass) {
    EXPECT_GT(checkAll("sheets", fuzz::checkSheet), 0);
}

}  // namespace
