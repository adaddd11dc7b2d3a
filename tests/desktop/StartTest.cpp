// How the program starts, as a process of its own.

#include "desktop/CommandLine.hpp"
#include "support/Places.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QProcess>

namespace desktop_tests {

namespace {

struct Outcome {
    int status;
    std::string output, errors;
};

/// Runs the program in an environment of these variables alone.
Outcome run(const QStringList& arguments, const QStringList& environment = {}) {
    QProcess program;
    QProcessEnvironment variables;
    for (const QString& line : environment) variables.insert(line.section(u'=', 0, 0), line.section(u'=', 1));
    program.setProcessEnvironment(variables);
    program.start(QString::fromStdString(testing_support::builtFile("modelhost-desktop").string()), arguments);
    EXPECT_TRUE(program.waitForFinished(30000)) << "it is still running";
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    return {program.exitCode(), program.readAllStandardOutput().toStdString(),
            program.readAllStandardError().toStdString()};
}

}  // namespace

TEST(Start, WithoutADisplayItSaysSoInOneLineAndEndsWithOne) {
    for (const QStringList& environment : {QStringList(), QStringList{QStringLiteral("DISPLAY=:4711")}}) {
        const Outcome outcome = run({}, environment);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(std::count(outcome.errors.begin(), outcome.errors.end(), '\n'), 1) << outcome.errors;
        EXPECT_THAT(outcome.errors, testing::HasSubstr("display"));
    }
}

TEST(Start, HelpAndVersionNeedNoDisplay) {
    EXPECT_THAT(run({QStringLiteral("--help")}).output, testing::HasSubstr("modelhost-desktop [MODEL.ifc]"));
    EXPECT_EQ(run({QStringLiteral("--version")}).output, "modelhost-desktop " DESKTOP_VERSION "\n");
}

TEST(CommandLine, WrongOnesAreRefusedWithTheWordThatIsWrong) {
    struct Row {
        std::vector<std::string> arguments;
        const char* error;
    };
    const Row rows[] = {{{"--addon"}, "--addon needs the path of a bundle"},
                        {{"--nonsense"}, "there is no option --nonsense; see --help"},
                        {{"a.ifc", "b.ifc"}, "one model at a time: do not know what to do with b.ifc"}};
    for (const Row& row : rows) EXPECT_EQ(desktop::readCommandLine(row.arguments).error, row.error);
}

TEST(CommandLine, ModelAndAddOnComeInAnyOrderAndDashesMayNameAFile) {
    const auto first = desktop::readCommandLine({"--addon", "A.bundle", "a.ifc"});
    EXPECT_EQ(first.addOn, "A.bundle");
    EXPECT_EQ(first.model, "a.ifc");
    EXPECT_EQ(desktop::readCommandLine({"--", "-odd.ifc"}).model, "-odd.ifc");
    EXPECT_EQ(desktop::readCommandLine({"--", "-odd.ifc"}).error, "");
}

}  // namespace desktop_tests
