#include "console/output/OutputFile.hpp"

#include "console/Failure.hpp"
#include "console/output/Interrupts.hpp"
#include "support/TempFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

namespace console {
namespace {

using testing_support::bytesOf;
using testing_support::TempFolder;

std::ptrdiff_t filesIn(const TempFolder& folder) {
    return std::distance(std::filesystem::directory_iterator(folder.path()), {});
}

/// A shell starts what runs in its background with interrupts ignored, and the tests with it.
void takeInterrupts() {
    std::signal(SIGINT, SIG_DFL);
}

TEST(OutputFile, IsThereOnlyAfterCommit) {
    const TempFolder folder;
    const auto target = folder.write("out.txt", "old");
    {
        OutputFile file(target);
        file.write("new");
        EXPECT_EQ(bytesOf(target), "old");
        file.commit();
    }
    EXPECT_EQ(bytesOf(target), "new");
    EXPECT_EQ(filesIn(folder), 1);
}

TEST(OutputFile, WithoutCommitLeavesNothingBehind) {
    const TempFolder folder;
    {
        OutputFile file(folder.path() / "out.txt");
        file.write("half");
    }
    EXPECT_EQ(filesIn(folder), 0);
}

TEST(OutputFile, ThatCannotBeMadeIsAFailure) {
    const TempFolder folder;
    EXPECT_THROW(OutputFile(folder.path() / "none" / "out.txt"), Failure);
    EXPECT_THROW(OutputFile{folder.path()}, Failure);
}

TEST(OutputFileDeathTest, InterruptedEndsTheProgramAndLeavesTheOldFile) {
    const TempFolder folder;
    const auto target = folder.write("out.txt", "old");
    const auto interrupt = [&target] {
        takeInterrupts();
        OutputFile file(target);
        file.write("new");
        std::raise(SIGINT);
        file.commit();
    };
    EXPECT_EXIT(interrupt(), testing::KilledBySignal(SIGINT), "interrupted; .*out.txt was not written");
    EXPECT_EQ(bytesOf(target), "old");
    EXPECT_EQ(filesIn(folder), 1);
}

TEST(InterruptGuardDeathTest, CancelsWhatRunsWhileItLives) {
    const auto interrupt = [] {
        const InterruptGuard guard;
        const model::Progress progress = InterruptGuard::cancelling({});
        const bool before = progress(1, 2);
        std::raise(SIGTERM);
        std::_Exit(before && !progress(1, 2) ? 7 : 8);
    };
    EXPECT_EXIT(interrupt(), testing::ExitedWithCode(7), "");
}

TEST(InterruptGuardDeathTest, PastItALaterInterruptEndsTheProgram) {
    const auto interrupt = [] {
        takeInterrupts();
        { const InterruptGuard guard; }
        std::raise(SIGINT);
    };
    EXPECT_EXIT(interrupt(), testing::KilledBySignal(SIGINT), "");
}

}  // namespace
}  // namespace console
