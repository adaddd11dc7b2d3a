// The seeds of the fuzzers, and what they found once, as plain tests.

#include "fuzz/Checks.hpp"
#include "support/Places.hpp"
#include "support/TempFolder.hpp"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

namespace fs = std::filesystem;

struct Target {
    const char* name;  ///< Also the folder of its seeds.
    void (*check)(std::string_view);
};

class FuzzSeeds : public ::testing::TestWithParam<Target> {};

TEST_P(FuzzSeeds, Pass) {
    int count = 0;
    for (const auto& seed :
         fs::directory_iterator(testing_support::projectFile("tests/fuzz/seeds") / GetParam().name)) {
        EXPECT_NO_THROW(GetParam().check(testing_support::bytesOf(seed.path()))) << seed.path();
        ++count;
    }
    EXPECT_GT(count, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Targets, FuzzSeeds,
    ::testing::Values(Target{"stepfile", fuzz::checkStepFile}, Target{"sweep", fuzz::checkSweep},
                      Target{"string", fuzz::checkString}, Target{"model", fuzz::checkModel},
                      Target{"comparing", fuzz::checkComparing}, Target{"selection", fuzz::checkSelection},
                      Target{"readback", fuzz::checkReadBack}, Target{"archive", fuzz::checkArchive},
                      Target{"saving", fuzz::checkSaving}, Target{"files", fuzz::checkFiles},
                      Target{"resource", fuzz::checkResources}, Target{"dialog", fuzz::checkDialogs},
                      Target{"updatefile", fuzz::checkUpdateFile}, Target{"script", fuzz::checkScript},
                      Target{"table", fuzz::checkTable}, Target{"sheet", fuzz::checkSheet}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
