// The clauses of docs/host-interface.md and the suites that prove them.

#include "support/Places.hpp"
#include "support/TempFolder.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>
#include <string>

namespace testing_support {
namespace {

/// A clause is a list item that begins with its name: "- **Name.** text".
std::set<std::string> clausesOfThePage() {
    const std::string begin = "- **";
    std::istringstream page(bytesOf(testing_support::projectFile("docs/host-interface.md")));
    std::set<std::string> names;
    for (std::string line; std::getline(page, line);) {
        const std::size_t end = line.find(".**");
        if (!line.starts_with(begin) || end == std::string::npos) continue;
        const std::string name = line.substr(begin.size(), end - begin.size());
        EXPECT_TRUE(names.insert(name).second) << name << " is stated twice";
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
