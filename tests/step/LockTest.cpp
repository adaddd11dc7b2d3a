// Two hosts on one file. flock sees two open files of one process like those of two.

#include "step/StepText.hpp"
#include "support/TempFolder.hpp"

#include <sys/wait.h>
#include <unistd.h>

namespace step_tests {
namespace {

using ::testing::HasSubstr;
using testing_support::bytesOf;
using testing_support::TempFolder;

const std::string Before = fileOf("#1=A(1);\n");

class Locking : public ::testing::Test {
protected:
    static std::unique_ptr<StepFile> open(const std::filesystem::path& path, bool lock = true) {
        OpenOptions options;
        options.lock = lock;
        auto file = StepFile::open(path, options);
        if (!file) throw std::runtime_error(file.error().message);
        return std::move(*file);
    }
    static void edit(StepFile& file, const char* value) {
        ASSERT_TRUE(file.begin());
        ASSERT_TRUE(file.replaceValue(0, argument(file, 1, 0), value));
        ASSERT_TRUE(file.commit("Edit"));
    }

    TempFolder folder_;
    std::filesystem::path house_ = folder_.write("house.ifc", Before);
};

TEST_F(Locking, TheSecondToOpenAFileIsToldWhoHasIt) {
    const auto first = open(house_);
    EXPECT_EQ(first->lockHolder(), "");
    const auto second = open(house_);
    EXPECT_EQ(second->lockHolder(), "this program itself");
}

TEST_F(Locking, AnotherProgramIsNamed) {
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const auto file = StepFile::open(house_);
        char byte = file ? 'y' : 'n';
        (void)!::write(ready[1], &byte, 1);
        ::pause();
        ::_exit(0);
    }
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    const auto file = open(house_);
    EXPECT_THAT(file->lockHolder(), HasSubstr("step_tests (process " + std::to_string(child) + ")"));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    // With the program its lock is gone.
    EXPECT_EQ(open(house_)->lockHolder(), "");
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST_F(Locking, TheSecondSavesUnderAnotherNameOnly) {
    const auto first = open(house_);
    const auto second = open(house_);
    edit(*second, "2");
    const Status saved = second->save(house_);
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, ErrorKind::CannotWrite);
    EXPECT_THAT(saved.error().message, HasSubstr("the file is open in this program itself"));
    EXPECT_EQ(bytesOf(house_), Before);
    EXPECT_TRUE(second->save(folder_.path() / "other.ifc"));
}

TEST_F(Locking, ForceDoesNotOverrideALock) {
    const auto first = open(house_);
    const auto second = open(house_);
    SaveOptions options;
    options.force = true;
    EXPECT_FALSE(second->save(house_, options));
}

TEST_F(Locking, AnyOpenFileIsSafeFromSavingOverIt) {
    const auto other = open(folder_.write("other.ifc", Before));
    EXPECT_FALSE(open(house_)->save(folder_.path() / "other.ifc"));
}

TEST_F(Locking, TheLockFollowsTheFileThroughASave) {
    const auto first = open(house_);
    edit(*first, "2");
    ASSERT_TRUE(first->save(house_));
    EXPECT_NE(open(house_)->lockHolder(), "");
    edit(*first, "3");
    EXPECT_TRUE(first->save(house_));
}

TEST_F(Locking, TheSecondSavesOnceTheFirstIsGoneAndLeftTheFileAlone) {
    auto first = open(house_);
    const auto second = open(house_);
    edit(*second, "2");
    first.reset();
    const Status saved = second->save(house_);
    EXPECT_TRUE(saved) << saved.error().message;
}

TEST_F(Locking, TheSecondDoesNotOverwriteWhatTheFirstSaved) {
    auto first = open(house_);
    const auto second = open(house_);
    edit(*first, "2");
    ASSERT_TRUE(first->save(house_));
    first.reset();
    edit(*second, "3");
    EXPECT_THAT(second->save(house_).error().message, HasSubstr("another program has changed the file"));
    EXPECT_EQ(bytesOf(house_), fileOf("#1=A(2);\n"));
}

TEST_F(Locking, ReadersTakeNoLock) {
    const auto reader = open(house_, false);
    const auto editor = open(house_);
    EXPECT_EQ(editor->lockHolder(), "");
}

TEST_F(Locking, AReaderThatSavesAfterAllRespectsLocks) {
    const auto editor = open(house_);
    const auto reader = open(house_, false);
    EXPECT_FALSE(reader->save(house_));
}

}  // namespace
}  // namespace step_tests
