// The file that a new version is written to first: who may read it, what it is called, and what becomes of it when the
// saver is killed. The calls of the system that matter are replaced for this program, so that a file system without
// unnamed files can be had anywhere, and a kill at the one moment that leaves something.

#include "step/StepText.hpp"
#include "support/TempFolder.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <optional>

namespace {

bool withoutUnnamedFiles = false;
bool killedAtRename = false;
std::optional<mode_t> modeWhileWriting;

}  // namespace

extern "C" int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    if (withoutUnnamedFiles && (flags & O_TMPFILE) == O_TMPFILE) {
        errno = EOPNOTSUPP;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

extern "C" ssize_t writev(int file, const iovec* vectors, int count) {
    struct stat found {};
    if (::fstat(file, &found) == 0 && S_ISREG(found.st_mode)) modeWhileWriting = found.st_mode & 07777U;
    return ::syscall(SYS_writev, file, vectors, count);
}

extern "C" int rename(const char* from, const char* to) {
    if (killedAtRename) ::_exit(9);
    return static_cast<int>(::syscall(SYS_rename, from, to));
}

namespace step_tests {
namespace {

namespace fs = std::filesystem;
using ::testing::UnorderedElementsAre;
using testing_support::bytesOf;
using testing_support::TempFolder;

const std::string Before = fileOf("#1=A(1);\n");

class TemporaryFiles : public ::testing::TestWithParam<bool> {
protected:
    void SetUp() override { withoutUnnamedFiles = GetParam(); }
    void TearDown() override { withoutUnnamedFiles = killedAtRename = false; }

    Status saveAs(const fs::path& path) {
        auto file = StepFile::open(house_);
        if (!file) return file.error();
        return (*file)->save(path);
    }
    std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder_.path()))
            found.push_back(entry.path().filename().string());
        return found;
    }

    TempFolder folder_;
    fs::path house_ = folder_.write("house.ifc", Before);
};

TEST_P(TemporaryFiles, OfAFileThatOthersMayNotReadCanBeReadByNobodyElse) {
    for (const mode_t mode : {0600U, 0640U, 0644U}) {
        ::chmod(house_.c_str(), mode);
        ASSERT_TRUE(saveAs(house_));
        ASSERT_TRUE(modeWhileWriting);
        EXPECT_EQ(*modeWhileWriting, 0600U);
        struct stat found {};
        ASSERT_EQ(::stat(house_.c_str(), &found), 0);
        EXPECT_EQ(found.st_mode & 07777U, mode);
    }
}

TEST_P(TemporaryFiles, OfANewFileHaveItsRights) {
    const mode_t mask = ::umask(0027);
    const Status saved = saveAs(folder_.path() / "new.ifc");
    ::umask(mask);
    ASSERT_TRUE(saved) << saved.error().message;
    struct stat found {};
    ASSERT_EQ(::stat((folder_.path() / "new.ifc").c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777U, 0640U);
}

TEST_P(TemporaryFiles, HaveNamesAsLongAsNamesMayBe) {
    for (const std::size_t length : {240U, 241U, 242U, 243U, 254U, 255U}) {
        for (const std::string& letter : {std::string("h"), std::string("\xC3\xA4"), std::string("\xE2\x82\xAC")}) {
            std::string name;
            while (name.size() + letter.size() + 4 <= length) name += letter;
            name.append(length - 4 - name.size(), 'x').append(".ifc");
            ASSERT_EQ(name.size(), length);
            const Status saved = saveAs(folder_.path() / name);
            EXPECT_TRUE(saved) << length << ": " << saved.error().message;
            EXPECT_EQ(bytesOf(folder_.path() / name), Before);
        }
    }
    const Status saved = saveAs(folder_.path() / (std::string(252, 'h') + ".ifc"));
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error().message, ::testing::HasSubstr("choose a shorter name"));
}

TEST_P(TemporaryFiles, OfAKilledSaverAreRemovedByTheNextSaveOfTheFile) {
    const pid_t saver = ::fork();
    if (saver == 0) {
        killedAtRename = true;
        (void)saveAs(house_);
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(saver, &status, 0), saver);
    ASSERT_EQ(WEXITSTATUS(status), 9);
    ASSERT_EQ(names().size(), 2U);
    ASSERT_TRUE(saveAs(folder_.path() / "other.ifc"));
    EXPECT_EQ(names().size(), 3U) << "a saver of another file";
    ASSERT_TRUE(saveAs(house_));
    EXPECT_THAT(names(), UnorderedElementsAre("house.ifc", "other.ifc"));
    EXPECT_EQ(bytesOf(house_), Before);
}

TEST_P(TemporaryFiles, ThatAreBeingWrittenStay) {
    const fs::path busy = folder_.write(".house.ifc.0badf00d.tmp", "half");
    const int writer = ::open(busy.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(writer, LOCK_EX), 0);
    ASSERT_TRUE(saveAs(house_));
    EXPECT_TRUE(fs::exists(busy));
    ::close(writer);
    ASSERT_TRUE(saveAs(house_));
    EXPECT_FALSE(fs::exists(busy));
}

TEST_P(TemporaryFiles, AreToldFromWhatOnlyLooksSimilar) {
    const std::vector<std::string> others = {
        ".house.ifc.0badf00.tmp",  ".house.ifc.0badf00dd.tmp", ".house.ifc.0badf00g.tmp", ".house.ifc.0BADF00D.tmp",
        ".house.ifc.0badf00d.tmq", "house.ifc.0badf00d.tmp",   ".House.ifc.0badf00d.tmp", ".house.ifc.0badf00d"};
    for (const std::string& name : others) folder_.write(name, "mine");
    fs::create_directory(folder_.path() / ".house.ifc.00000001.tmp");
    fs::create_symlink("house.ifc", folder_.path() / ".house.ifc.00000002.tmp");
    ASSERT_TRUE(saveAs(house_));
    EXPECT_EQ(names().size(), others.size() + 3);
    EXPECT_EQ(bytesOf(house_), Before);
}

INSTANTIATE_TEST_SUITE_P(Disks, TemporaryFiles, ::testing::Bool(),
                         [](const auto& row) { return row.param ? "WithoutUnnamedFiles" : "WithUnnamedFiles"; });

}  // namespace
}  // namespace step_tests
