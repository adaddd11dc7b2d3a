// modelhost and the user's file: killed at any moment, interrupted, with links, and with what must be said of a file
// before its new version replaces the old one.

#include "ConsoleTest.hpp"
#include "support/Places.hpp"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace console_tests {
namespace {

class SafeSaving : public ConsoleTest {
protected:
    SafeSaving() { updates({{WallGuid, "FireRating[WallCommon]", "F 90", "F 60"}}); }

    Outcome apply(const std::string& model = "house.ifc") {
        return run({"import", model, "updates.txt", "--tick", "all", "--apply", "--in-place", "--force"});
    }
    std::string inserted(const std::string& before, const std::string& text) {
        std::string bytes = house();
        return bytes.insert(bytes.rfind(before), text);
    }
};

TEST_F(SafeSaving, OfASignedFileSaysThatTheSignatureIsNoLongerValid) {
    write("house.ifc", house() + "SIGNATURE;\nMIIB\nENDSEC;\n");
    const Outcome outcome = apply();
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr("the file is signed; saved with changes, its signature is no longer valid"));
    EXPECT_THAT(bytes("house.ifc"), HasSubstr("'F 60'"));
    EXPECT_TRUE(bytes("house.ifc").ends_with("SIGNATURE;\nMIIB\nENDSEC;\n"));
}

TEST_F(SafeSaving, OfAFileThatWasCutSaysSo) {
    const std::string whole = house();
    write("house.ifc", whole.substr(0, whole.rfind("ENDSEC")) + std::string(100, '\0'));
    const Outcome outcome = apply();
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr("the file is not complete: ENDSEC and END-ISO-10303-21 are missing"));
    EXPECT_TRUE(bytes("house.ifc").ends_with(std::string(100, '\0')));
}

TEST_F(SafeSaving, LeavesOtherNamesOfTheFileWithTheOldVersion) {
    std::filesystem::create_hard_link(folder_.path() / "house.ifc", folder_.path() / "backup.ifc");
    const Outcome outcome = apply();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, HasSubstr("the file has 2 names (hard links); saving changes it under this name alone"));
    EXPECT_THAT(bytes("house.ifc"), HasSubstr("'F 60'"));
    EXPECT_EQ(bytes("backup.ifc"), house());
}

TEST_F(SafeSaving, KeepsModeBitsAndLinks) {
    std::filesystem::rename(folder_.path() / "house.ifc", folder_.path() / "real.ifc");
    ::chmod((folder_.path() / "real.ifc").c_str(), 0604);
    std::filesystem::create_symlink("real.ifc", folder_.path() / "house.ifc");
    EXPECT_EQ(apply().status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(folder_.path() / "house.ifc"));
    struct stat found {};
    ASSERT_EQ(::stat((folder_.path() / "real.ifc").c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777U, 0604U);
    EXPECT_THAT(bytes("real.ifc"), HasSubstr("'F 60'"));
}

using Clock = std::chrono::steady_clock;

/// The program at work on its own; killed after a while, where it is not done before.
/// @return how long it worked.
Clock::duration runAndKill(const std::filesystem::path& folder, Clock::duration after) {
    const Clock::time_point begin = Clock::now();
    const std::string program = testing_support::builtFile("modelhost").string();
    // What it counts of its coverage is cut off when it is killed while it ends, and must not spoil all others' counts.
    const testing_support::TempFolder counts;
    const pid_t process = ::fork();
    if (process == 0) {
        if (::chdir(folder.c_str()) != 0 || std::freopen("/dev/null", "w", stdout) == nullptr ||
            ::setenv("GCOV_PREFIX", counts.path().c_str(), 1) != 0)
            ::_exit(1);
        ::execl(program.c_str(), "modelhost", "import", "house.ifc", "updates.txt", "--tick", "all", "--apply",
                "--in-place", static_cast<char*>(nullptr));
        ::_exit(1);
    }
    int status = 0;
    bool ended = false;
    while (!ended && Clock::now() - begin < after) {
        std::this_thread::sleep_for(std::chrono::microseconds(50));
        ended = ::waitpid(process, &status, WNOHANG) == process;
    }
    if (!ended && ::kill(process, SIGKILL) == 0) ::waitpid(process, &status, 0);
    return Clock::now() - begin;
}

TEST_F(SafeSaving, KilledAtAnyMomentLeavesOneWholeVersion) {
    // Large enough that saving takes a good part of the time.
    std::string comment = "/*";
    while (comment.size() < (4U << 20U)) comment += " nothing but bytes to be written\n";
    const std::string before = inserted("ENDSEC;", comment + "*/\n");
    std::string after = before;
    after.replace(after.find("'F 90'"), 6, "'F 60'");
    write("house.ifc", before);
    std::chrono::duration<double> whole = runAndKill(folder_.path(), std::chrono::seconds(60));
    ASSERT_TRUE(bytes("house.ifc") == after);
    constexpr int Kills = 40;
    std::mt19937 random(7);
    std::uniform_real_distribution<double> part(0.0, 1.1);
    int replaced = 0;
    for (int kill = 0; kill < Kills; ++kill) {
        write("house.ifc", before);
        runAndKill(folder_.path(), std::chrono::duration_cast<Clock::duration>(whole * part(random)));
        const std::string now = bytes("house.ifc");
        ASSERT_TRUE(now == before || now == after) << "kill " << kill << ", " << now.size() << " bytes";
        replaced += now == after ? 1 : 0;
        // Other programs may be slowing this one down more than when it was measured, or less.
        whole *= now == after ? 0.95 : 1.05;
    }
    // Otherwise the kills came too early or too late to try anything.
    EXPECT_GT(replaced, 0);
    EXPECT_LT(replaced, Kills);
}

}  // namespace
}  // namespace console_tests
