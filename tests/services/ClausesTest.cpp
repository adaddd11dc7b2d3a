// The clauses of docs/host-interface.md and the suites that prove them.

#include "support/TempFolder.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <string>

namespace testing_support {
namespace {

std::set<std::string> clausesOfThePage() {
    const std::string page = bytesOf(std::filesystem::path(PROJECT_DIR) / "docs" / "host-interface.md");
    const std::regex clause(R"(- \*\*(\w+)\.\*\*)");
    std::set<std::string> names;
    for (std::sregex_iterator match(page.begin(), page.end(), clause), end; match != end; ++match) {
        EXPECT_TRUE(names.insert((*match)[1]).second) << (*match)[1] << " is stated twice";
    }
    return names;
}

std::set<std::string> suitesOfThisProgram() {
    const ::testing::UnitTest& program = *::testing::UnitTest::GetInstance();
    std::set<std::string> names;
    for (int i = 0; i < program.total_test_suite_count(); ++i) names.insert(program.GetTestSuite(i)->name());
    return names;
}

TEST(Clauses, EachHasASuiteOfItsName) {
    const std::set<std::string> suites = suitesOfThisProgram();
    const std::set<std::string> clauses = clausesOfThePage();
    EXPECT_GT(clauses.size(), 30U);
    for (const std::string& clause : clauses) EXPECT_TRUE(suites.contains(clause)) << "no test proves " << clause;
}

}  // namespace
}  // namespace testing_support
