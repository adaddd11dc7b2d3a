// What the add-on's dialog does not show: its command was undone, it crashed, it could not read its file. Nothing is
// saved then, and the exit status says so.

#include "ConsoleTest.hpp"
#include "console/ModelSession.hpp"
#include "console/import/ImportUser.hpp"
#include "importing/ReviewRows.hpp"
#include "support/Places.hpp"

namespace console_tests {
namespace {

using testing_support::galleryAddOn;

class FailedCommand : public ConsoleTest {
protected:
    FailedCommand() { updates({{WallGuid, "Name", "", "North wall"}}); }

    Outcome runWith(const char* addOn, Fields arguments) {
        arguments.insert(arguments.end(), {"--addon", galleryAddOn(addOn).string()});
        return run(arguments);
    }
};

TEST_F(FailedCommand, OfAnImportIsAFailureAndNothingIsSaved) {
    const Outcome outcome =
        runWith("CrashesInApply.bundle", {"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("the add-on CrashesInApply crashed in an undoable command"));
    EXPECT_THAT(outcome.err, HasSubstr("nothing was saved"));
    EXPECT_FALSE(exists("out.ifc"));
    EXPECT_EQ(bytes("house.ifc"), house());
}

TEST_F(FailedCommand, OfAScriptIsAnsweredWithAnError) {
    write("steps.jsonl", R"({"menu":1})"
                         "\n"
                         R"({"click":1})"
                         "\n");
    const Outcome outcome = runWith("CrashesInApply.bundle", {"script", "house.ifc", "steps.jsonl"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, HasSubstr(R"("error":"the add-on's changes were undone: )"));
}

TEST_F(FailedCommand, OfAScriptIsAnErrorAlsoWhereNothingWasUndone) {
    write("steps.jsonl", "{\"menu\":1}\n{\"save\":\"out.ifc\"}\n");
    const Outcome outcome = runWith("ThrowsOutOfCommand.bundle", {"script", "house.ifc", "steps.jsonl"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, testing::StartsWith(R"({"menu":1,"returned":)"));
    EXPECT_THAT(outcome.out, HasSubstr(R"("error":"the add-on's menu item 1 ended with error 0x)"));
    EXPECT_THAT(outcome.out, HasSubstr(R"("line":1})"
                                       "\n"
                                       R"({"save":"out.ifc"})"));
    EXPECT_EQ(bytes("out.ifc"), house()) << "the script goes on, with the model as it was";
}

TEST_F(FailedCommand, OfALookUpDoesNotBlameTheGuid) {
    const Outcome outcome = runWith("CrashesInLookup.bundle", {"lookup", "house.ifc", WallGuid, DoorGuid});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("the add-on CrashesInLookup crashed in a dialog handler"));
    EXPECT_THAT(outcome.err, Not(HasSubstr("is no GUID")));
}

importing::ListRow row(const char* tick, const char* remarks, int status) {
    return {{tick, "Wall-01", "Wall", "GUID", "Name", "", "new", remarks}, status, {}};
}

TEST(UnfinishedRows, AreThoseTickedAndEnabledWithoutAResult) {
    const std::vector<importing::ListRow> review{row("[X]", "", DG_IS_ENABLE), row("[X]", "", DG_IS_ENABLE),
                                                 row("[X]", "", DG_IS_ENABLE), row("[X]", "", DG_IS_DISABLE),
                                                 row("[  ]", "", DG_IS_ENABLE)};
    std::vector<importing::ListRow> result = review;
    result[0] = row("[  ]", "Done", DG_IS_DISABLE);
    result[1] = row("[X]", "error!", DG_IS_ENABLE);
    EXPECT_THAT(importing::unfinishedRows(review, result).first, ElementsAre(3U));
    result[2] = result[0];
    EXPECT_EQ(importing::unfinishedRows(review, result).count, 0U);
}

/// The file is there when the host looks at it, and gone when the add-on opens it.
class UserOfAVanishingFile : public console::ImportUser {
public:
    explicit UserOfAVanishingFile(const std::string& path) : ImportUser({path, path, 1, {}, false, {}}), path_(path) {}
    std::optional<std::string> pickFile(const frontend::FileRequest&) override {
        std::filesystem::remove(path_);
        return path_;
    }

private:
    std::string path_;
};

TEST_F(FailedCommand, ThatCouldNotReadItsFileIsKnown) {
    console::CommonOptions options;
    options.addOn = testing_support::builtFile("ZUNACAddin19.bundle");
    console::ModelSession session(options, folder_.path() / "house.ifc", console::Access::Reading);
    session.loadAddOn();
    const std::string updates = (folder_.path() / "updates.txt").string();
    UserOfAVanishingFile user(updates);
    session.runMenuCommand(1, user);
    const auto problem = session.takeProblem();
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->file, updates);
    EXPECT_EQ(problem->reason, "No such file or directory");
    EXPECT_FALSE(session.takeProblem()) << "it is told once";
}

TEST_F(FailedCommand, OfAScriptThatNamesNoFileIsAnsweredWithAnError) {
    write("steps.jsonl", "{\"menu\":1}\n{\"file\":\"none.txt\"}\n{\"click\":2}\n");
    const Outcome outcome = run({"script", "house.ifc", "steps.jsonl"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, HasSubstr(R"("error":"cannot read none.txt: No such file or directory","line":2})"));
}

TEST_F(FailedCommand, OfAScriptThatCannotBeReadToItsEndSaysWhere) {
    const Outcome outcome = run({"script", "house.ifc", "/proc/self/mem"});
    expectError(outcome, {"cannot read line 1 of the steps in /proc/self/mem: Input/output error"});
}

TEST_F(FailedCommand, OfAnUpdateFileThatCannotBeReadIsNoEmptyFile) {
    expectError(run({"import", "house.ifc", "/proc/self/mem", "--apply", "-o", "out.ifc"}),
                {"cannot read the update file /proc/self/mem: Input/output error"});
    EXPECT_FALSE(exists("out.ifc"));
}

}  // namespace
}  // namespace console_tests
