// --backup: the file that a save replaces is kept beside it.

#include "ConsoleTest.hpp"

#include <sys/stat.h>

namespace console_tests {
namespace {

class BackedUp : public ConsoleTest {
protected:
    BackedUp() { updates({{WallGuid, "FireRating[WallCommon]", "F 90", "F 60"}}); }

    Outcome apply(const std::string& option = "--backup") {
        return run({"import", "house.ifc", "updates.txt", "--apply", "--in-place", option});
    }
    struct stat statusOf(const std::string& name) {
        struct stat found {};
        EXPECT_EQ(::stat((folder_.path() / name).c_str(), &found), 0) << name;
        return found;
    }
    std::size_t files() {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder_.path()), {}));
    }
};

TEST_F(BackedUp, AFileSavedInPlaceIsThereAsItWas) {
    ::chmod((folder_.path() / "house.ifc").c_str(), 0640);
    const ino_t before = statusOf("house.ifc").st_ino;
    const Outcome outcome = apply();
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("Kept as it was: "));
    EXPECT_THAT(outcome.out, HasSubstr("/house.ifc.bak\n"));
    EXPECT_EQ(bytes("house.ifc.bak"), house());
    EXPECT_EQ(statusOf("house.ifc.bak").st_ino, before);
    EXPECT_EQ(statusOf("house.ifc.bak").st_nlink, 1U);
    EXPECT_EQ(statusOf("house.ifc").st_mode & 0777U, 0640U);
    EXPECT_THAT(bytes("house.ifc"), HasSubstr("'F 60'"));
}

TEST_F(BackedUp, TheSuffixIsTheUsers) {
    EXPECT_EQ(apply("--backup=~").status, 0);
    EXPECT_EQ(bytes("house.ifc~"), house());
}

TEST_F(BackedUp, NoBackupIsEverOverwritten) {
    write("house.ifc.bak", "somebody's");
    ASSERT_EQ(apply().status, 0);
    EXPECT_EQ(bytes("house.ifc.bak"), "somebody's");
    EXPECT_EQ(bytes("house.ifc.bak.2"), house());
    const std::string between = bytes("house.ifc");
    updates({{WallGuid, "FireRating[WallCommon]", "F 60", "F 30"}});
    const Json document = json({"import", "house.ifc", "updates.txt", "--apply", "--in-place", "--backup"});
    EXPECT_THAT(document["backup"].get<std::string>(), testing::EndsWith("/house.ifc.bak.3"));
    EXPECT_EQ(bytes("house.ifc.bak.3"), between);
    EXPECT_EQ(bytes("house.ifc.bak.2"), house());
}

TEST_F(BackedUp, WhatCannotBeKeptIsNotSaved) {
    for (const std::string& option : {std::string("--backup=/x"), "--backup=" + std::string(300, 'x')}) {
        const Outcome outcome = apply(option);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.err,
                    testing::ContainsRegex("house.ifc: it cannot be kept as it was: .*; nothing was saved"));
        EXPECT_EQ(bytes("house.ifc"), house());
    }
}

TEST_F(BackedUp, AFileWithOtherNamesIsCopied) {
    std::filesystem::create_hard_link(folder_.path() / "house.ifc", folder_.path() / "other.ifc");
    ::chmod((folder_.path() / "house.ifc").c_str(), 0604);
    ASSERT_EQ(apply().status, 0);
    EXPECT_EQ(bytes("house.ifc.bak"), house());
    EXPECT_NE(statusOf("house.ifc.bak").st_ino, statusOf("other.ifc").st_ino);
    EXPECT_EQ(statusOf("house.ifc.bak").st_mode & 0777U, 0604U);
}

TEST_F(BackedUp, ALinksFileIsKeptWhereItLies) {
    std::filesystem::create_directory(folder_.path() / "real");
    std::filesystem::rename(folder_.path() / "house.ifc", folder_.path() / "real/house.ifc");
    std::filesystem::create_symlink("real/house.ifc", folder_.path() / "house.ifc");
    ASSERT_EQ(apply().status, 0);
    EXPECT_EQ(bytes("real/house.ifc.bak"), house());
    EXPECT_TRUE(std::filesystem::is_symlink(folder_.path() / "house.ifc"));
}

TEST_F(BackedUp, OnlyWhatIsSavedOver) {
    updates({{WallGuid, "FireRating[WallCommon]", "F 90", "F 90"}});
    const std::size_t before = files();
    EXPECT_EQ(apply().status, 0);
    EXPECT_EQ(files(), before);
    EXPECT_EQ(run({"import", "house.ifc", "updates.txt", "--apply", "-o", "new.ifc", "--backup"}).status, 0);
    EXPECT_EQ(files(), before + 1);
    expectError(run({"import", "house.ifc", "updates.txt", "--backup"}),
                {"--backup keeps the file that is saved over"});
}

const char* const Rename = R"({"menu":1}
{"click":3}
{"click":1}
{"click":2}
)";

TEST_F(BackedUp, AScriptKeepsTheFileAsItWasWhenItBegan) {
    write("steps.jsonl", std::string(R"({"file":"updates.txt"})") + "\n" + Rename +
                             R"({"save":"house.ifc"}
{"undo":true}
{"save":"house.ifc"}
)");
    const Outcome outcome = run({"script", "house.ifc", "steps.jsonl", "--backup"});
    EXPECT_EQ(outcome.status, 0) << outcome.out;
    EXPECT_THAT(outcome.out, HasSubstr("\"backup\":\""));
    EXPECT_EQ(bytes("house.ifc.bak"), house());
    EXPECT_FALSE(exists("house.ifc.bak.2"));
}

TEST_F(BackedUp, ASaveThatIsRefusedLeavesNoBackup) {
    ScriptedHost host(modelhost(), "house.ifc", {"--backup"});
    host.perform(R"({"file":"updates.txt"})");
    std::istringstream steps(Rename);
    for (std::string step; std::getline(steps, step);) host.perform(step);
    write("house.ifc", house() + "/* somebody else's */\n");
    EXPECT_THAT(host.perform(R"({"save":"house.ifc"})"), HasSubstr("another program has changed the file"));
    EXPECT_FALSE(exists("house.ifc.bak"));
    write("house.ifc", house());
}

}  // namespace
}  // namespace console_tests
