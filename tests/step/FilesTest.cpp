// Opening and saving files of the real file system.

#include "model/step/disk/Saving.hpp"
#include "step/StepText.hpp"
#include "support/ActingAsNobody.hpp"
#include "support/Places.hpp"
#include "support/TempFolder.hpp"

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

namespace step_tests {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using testing_support::bytesOf;
using testing_support::TempFolder;

const std::string Before = fileOf("#1=A(1);\n");
const std::string After = fileOf("#1=A(2);\n");

std::unique_ptr<StepFile> openFile(const fs::path& path) {
    auto file = StepFile::open(path);
    if (!file) throw std::runtime_error(file.error().message);
    return std::move(*file);
}

void edit(StepFile& file, const char* value = "2") {
    ASSERT_TRUE(file.begin());
    ASSERT_TRUE(file.replaceValue(0, argument(file, 1, 0), value));
    ASSERT_TRUE(file.commit("Edit"));
}

std::vector<std::string> names(const fs::path& folder) {
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(folder)) found.push_back(entry.path().filename().string());
    return found;
}

class Files : public ::testing::Test {
protected:
    void TearDown() override {
        for (const std::string& name : names(folder_.path())) EXPECT_FALSE(name.starts_with(".")) << name;
    }

    TempFolder folder_;
    fs::path house_ = folder_.write("house.ifc", Before);
};

TEST_F(Files, AreSavedInPlace) {
    const auto file = openFile(house_);
    edit(*file);
    const Status saved = file->save(house_);
    ASSERT_TRUE(saved) << saved.error().message;
    EXPECT_EQ(bytesOf(house_), After);
    EXPECT_FALSE(file->modified());
}

TEST_F(Files, AreSavedAgainAndAgain) {
    const auto file = openFile(house_);
    for (const char* value : {"2", "3", "'four'"}) {
        edit(*file, value);
        ASSERT_TRUE(file->save(house_));
        EXPECT_EQ(bytesOf(house_), fileOf("#1=A(" + std::string(value) + ");\n"));
    }
}

TEST_F(Files, UndoneAfterSavingDifferFromTheFile) {
    const auto file = openFile(house_);
    edit(*file);
    ASSERT_TRUE(file->save(house_));
    ASSERT_TRUE(file->undo());
    EXPECT_TRUE(file->modified());
    ASSERT_TRUE(file->redo());
    EXPECT_FALSE(file->modified());
    ASSERT_TRUE(file->undo());
    ASSERT_TRUE(file->save(house_));
    EXPECT_EQ(bytesOf(house_), Before);
    EXPECT_FALSE(file->modified());
}

TEST_F(Files, AreSavedUnderAnotherName) {
    const auto file = openFile(house_);
    edit(*file);
    ASSERT_TRUE(file->save(folder_.path() / "other.ifc"));
    EXPECT_EQ(bytesOf(house_), Before);
    EXPECT_EQ(bytesOf(folder_.path() / "other.ifc"), After);
    EXPECT_FALSE(file->modified());
}

TEST_F(Files, AreSavedInAnotherFileSystem) {
    if (!fs::is_directory("/dev/shm")) GTEST_SKIP() << "there is no second file system in /dev/shm";
    const fs::path other = "/dev/shm/step-test-" + std::to_string(::getpid()) + ".ifc";
    const auto file = openFile(house_);
    edit(*file);
    const Status saved = file->save(other);
    EXPECT_TRUE(saved) << saved.error().message;
    EXPECT_EQ(bytesOf(other), After);
    fs::remove(other);
}

TEST_F(Files, AreSavedByRelativeNames) {
    const fs::path where = fs::current_path();
    fs::current_path(folder_.path());
    const auto file = openFile("house.ifc");
    edit(*file);
    const Status saved = file->save("house.ifc");
    fs::current_path(where);
    EXPECT_TRUE(saved) << saved.error().message;
    EXPECT_EQ(bytesOf(house_), After);
}

TEST_F(Files, KeepTheirModeBits) {
    for (const mode_t mode : {0600U, 0640U, 0664U, 0755U}) {
        ::chmod(house_.c_str(), mode);
        const auto file = openFile(house_);
        edit(*file, "9");
        ASSERT_TRUE(file->save(house_));
        struct stat found {};
        ASSERT_EQ(::stat(house_.c_str(), &found), 0);
        EXPECT_EQ(found.st_mode & 07777U, mode);
        folder_.write("house.ifc", Before);
    }
}

TEST_F(Files, NewOnesGetTheModeBitsOfAnyNewFile) {
    const mode_t mask = ::umask(0027);
    const auto file = openFile(house_);
    ASSERT_TRUE(file->save(folder_.path() / "new.ifc"));
    ::umask(mask);
    struct stat found {};
    ASSERT_EQ(::stat((folder_.path() / "new.ifc").c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777U, 0640U);
}

TEST_F(Files, KeepTheirOwner) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root may give files away";
    ASSERT_EQ(::chown(house_.c_str(), 1234, 5678), 0);
    const auto file = openFile(house_);
    edit(*file);
    ASSERT_TRUE(file->save(house_));
    struct stat found {};
    ASSERT_EQ(::stat(house_.c_str(), &found), 0);
    EXPECT_EQ(found.st_uid, 1234U);
    EXPECT_EQ(found.st_gid, 5678U);
}

TEST_F(Files, WhoseGroupCannotBeKeptGiveNoOtherGroupMoreThanEverybody) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root may act as somebody else";
    constexpr uid_t nobody = 65534;
    ASSERT_EQ(::chown(house_.c_str(), nobody, 5678), 0);
    ::chmod(house_.c_str(), 0664);
    ::chmod(folder_.path().c_str(), 0777);
    const auto file = openFile(house_);
    edit(*file);
    const auto saved = [&] {
        const testing_support::ActingAsNobody acting;
        return file->save(house_);
    }();
    ASSERT_TRUE(saved) << saved.error().message;
    struct stat found {};
    ASSERT_EQ(::stat(house_.c_str(), &found), 0);
    EXPECT_EQ(found.st_uid, nobody);
    EXPECT_NE(found.st_gid, 5678U);
    EXPECT_EQ(found.st_mode & 07777U, 0644U);
}

TEST_F(Files, OfOneNameAndOurOwnAreReplacedWithoutAWarning) {
    EXPECT_THAT(model::step::targetWarnings(house_), IsEmpty());
    EXPECT_THAT(model::step::targetWarnings(folder_.path() / "new.ifc"), IsEmpty());
    EXPECT_THAT(model::step::targetWarnings(folder_.path()), IsEmpty());
    EXPECT_THAT(model::step::targetWarnings(folder_.path() / "missing" / "x.ifc"), IsEmpty());
}

TEST_F(Files, OfSeveralNamesAreToldOfBefore) {
    fs::create_hard_link(house_, folder_.path() / "other.ifc");
    EXPECT_THAT(model::step::targetWarnings(house_), UnorderedElementsAre(HasSubstr("has 2 names (hard links)")));
    fs::create_symlink("house.ifc", folder_.path() / "link.ifc");
    EXPECT_THAT(model::step::targetWarnings(folder_.path() / "link.ifc"),
                UnorderedElementsAre(HasSubstr(house_.string())));
}

TEST_F(Files, OfSomebodyElseAreToldOfBefore) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root may give files away";
    ASSERT_EQ(::chown(house_.c_str(), 1234, 5678), 0);
    ::chmod(folder_.path().c_str(), 0755);
    EXPECT_THAT(model::step::targetWarnings(house_), IsEmpty());
    const testing_support::ActingAsNobody acting;
    EXPECT_THAT(model::step::targetWarnings(house_),
                UnorderedElementsAre(HasSubstr("belongs to 1234"), HasSubstr("of the group 5678")));
}

TEST_F(Files, BehindALinkAreReplacedAndTheLinkStays) {
    fs::create_directory(folder_.path() / "store");
    fs::rename(house_, folder_.path() / "store/house.ifc");
    fs::create_symlink("store/house.ifc", folder_.path() / "inner.ifc");
    fs::create_symlink(folder_.path() / "inner.ifc", house_);
    const auto file = openFile(house_);
    edit(*file);
    ASSERT_TRUE(file->save(house_));
    EXPECT_TRUE(fs::is_symlink(house_));
    EXPECT_TRUE(fs::is_symlink(folder_.path() / "inner.ifc"));
    EXPECT_EQ(bytesOf(folder_.path() / "store/house.ifc"), After);
    EXPECT_THAT(names(folder_.path() / "store"), UnorderedElementsAre("house.ifc"));
}

TEST_F(Files, BehindALinkThatLeadsNowhereAreMadeThere) {
    fs::create_symlink("missing.ifc", folder_.path() / "link.ifc");
    const auto file = openFile(house_);
    ASSERT_TRUE(file->save(folder_.path() / "link.ifc"));
    EXPECT_TRUE(fs::is_symlink(folder_.path() / "link.ifc"));
    EXPECT_EQ(bytesOf(folder_.path() / "missing.ifc"), Before);
}

TEST_F(Files, BehindACircleOfLinksAreRefused) {
    fs::create_symlink("b.ifc", folder_.path() / "a.ifc");
    fs::create_symlink("a.ifc", folder_.path() / "b.ifc");
    EXPECT_EQ(openFile(house_)->save(folder_.path() / "a.ifc").error().kind, ErrorKind::CannotWrite);
    EXPECT_EQ(StepFile::open(folder_.path() / "a.ifc").error().kind, ErrorKind::CannotRead);
}

TEST_F(Files, AreFollowedThroughFortyLinks) {
    std::string target = "house.ifc";
    for (int i = 1; i <= 41; ++i) {
        const std::string link = "link" + std::to_string(i) + ".ifc";
        fs::create_symlink(target, folder_.path() / link);
        target = link;
    }
    for (const char* link : {"link39.ifc", "link40.ifc"}) {
        const auto file = openFile(folder_.path() / link);
        EXPECT_TRUE(file->save(folder_.path() / link)) << link;
        EXPECT_TRUE(fs::is_symlink(folder_.path() / link));
    }
    EXPECT_EQ(StepFile::open(folder_.path() / "link41.ifc").error().kind, ErrorKind::CannotRead);
    EXPECT_EQ(openFile(house_)->save(folder_.path() / "link41.ifc").error().kind, ErrorKind::CannotWrite);
}

TEST_F(Files, OfSeveralNamesChangeUnderTheNameSavedAlone) {
    fs::create_hard_link(house_, folder_.path() / "other.ifc");
    const auto file = openFile(house_);
    edit(*file);
    ASSERT_TRUE(file->save(house_));
    EXPECT_EQ(bytesOf(house_), After);
    EXPECT_EQ(bytesOf(folder_.path() / "other.ifc"), Before);
}

TEST_F(Files, ChangedByOthersSinceTheyWereOpenedAreNotOverwritten) {
    const auto file = openFile(house_);
    edit(*file);
    folder_.write("house.ifc", fileOf("#1=A(7);\n"));
    const Status saved = file->save(house_);
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, ErrorKind::ChangedSince);
    EXPECT_THAT(saved.error().message, HasSubstr("another program has changed the file"));
    EXPECT_EQ(bytesOf(house_), fileOf("#1=A(7);\n"));
    SaveOptions options;
    options.force = true;
    EXPECT_TRUE(file->save(house_, options));
    EXPECT_EQ(bytesOf(house_), After);
}

/// Sets the time of a file to what it was, as a program that unpacks or synchronises does.
void setTimeBack(const fs::path& path, fs::file_time_type time) {
    fs::last_write_time(path, time);
    ASSERT_EQ(fs::last_write_time(path), time);
}

TEST_F(Files, RewrittenInPlaceWithTheirOldTimeAreNotOverwritten) {
    const auto time = fs::last_write_time(house_);
    const auto file = openFile(house_);
    edit(*file);
    const std::string other = fileOf("#1=A(7);\n");
    folder_.write("house.ifc", other);
    setTimeBack(house_, time);
    const Status saved = file->save(house_);
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, ErrorKind::ChangedSince);
    EXPECT_EQ(bytesOf(house_), other);
}

TEST_F(Files, OnlyTouchedByOthersAreSavedAgainAndAgain) {
    const auto file = openFile(house_);
    for (const char* value : {"2", "3"}) {
        const auto time = fs::last_write_time(house_);
        edit(*file, value);
        folder_.write("house.ifc", bytesOf(house_));
        setTimeBack(house_, time);
        ::chmod(house_.c_str(), 0600);
        const Status saved = file->save(house_);
        ASSERT_TRUE(saved) << saved.error().message;
        EXPECT_EQ(bytesOf(house_), fileOf("#1=A(" + std::string(value) + ");\n"));
    }
}

TEST_F(Files, ReplacedByOthersAreNotOverwrittenThroughAnyName) {
    fs::create_symlink("house.ifc", folder_.path() / "link.ifc");
    const auto file = openFile(house_);
    fs::rename(folder_.write("new", Before), house_);
    EXPECT_FALSE(file->save(folder_.path() / "link.ifc"));
    EXPECT_FALSE(file->save(folder_.path() / "." / "house.ifc"));
}

TEST_F(Files, OverwrittenOrCutByOthersLeaveTheOpenedModelAlone) {
    const auto file = openFile(house_);
    fs::resize_file(house_, 0);
    EXPECT_EQ(file->bytes(), Before);
    EXPECT_EQ(file->text(0), "#1=A(1);");
}

TEST_F(Files, ThatAreWriteProtectedAreNotReplaced) {
    ::chmod(house_.c_str(), 0444);
    ::chmod(folder_.path().c_str(), 0777);
    const auto file = openFile(house_);
    edit(*file);
    const testing_support::ActingAsNobody nobody;
    const Status saved = file->save(house_);
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error().message, HasSubstr("write-protected"));
    EXPECT_EQ(bytesOf(house_), Before);
}

TEST_F(Files, InAFolderThatMayNotBeWrittenAreNotReplaced) {
    ::chmod(house_.c_str(), 0666);
    ::chmod(folder_.path().c_str(), 0555);
    const auto file = openFile(house_);
    edit(*file);
    const auto saved = [&] {
        const testing_support::ActingAsNobody nobody;
        return file->save(house_);
    }();
    ::chmod(folder_.path().c_str(), 0755);
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error().message, HasSubstr("Permission denied; the folder or the file may not be written"));
    EXPECT_EQ(bytesOf(house_), Before);
}

TEST_F(Files, ThatAreNoneAreRefused) {
    const auto file = openFile(house_);
    EXPECT_THAT(file->save(folder_.path()).error().message, HasSubstr("folder or a device"));
    EXPECT_THAT(file->save("/dev/full").error().message, HasSubstr("folder or a device"));
    EXPECT_EQ(file->save(folder_.path() / "missing" / "x.ifc").error().kind, ErrorKind::CannotWrite);
    EXPECT_THAT(StepFile::open(folder_.path()).error().message, HasSubstr("folder or a device"));
    EXPECT_THAT(StepFile::open("/dev/null").error().message, HasSubstr("folder or a device"));
    EXPECT_THAT(StepFile::open(folder_.path() / "missing.ifc").error().message, HasSubstr("No such file"));
    EXPECT_THAT(StepFile::open(house_ / "x").error().message, HasSubstr("Not a directory"));
    EXPECT_THAT(StepFile::open(folder_.write("empty.ifc", "")).error().message, HasSubstr("the file is empty"));
}

TEST_F(Files, PipesDoNotKeepTheProgramWaiting) {
    const fs::path pipe = folder_.path() / "pipe.ifc";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_THAT(StepFile::open(pipe).error().message, HasSubstr("folder or a device"));
    EXPECT_FALSE(openFile(house_)->save(pipe));
}

TEST_F(Files, TooLargeForTheDiskLeaveTheOldOne) {
    const auto file = openFile(house_);
    edit(*file, ("'" + std::string(100000, 'x') + "'").c_str());
    struct rlimit old {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit small = old;
    small.rlim_cur = 50000;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const Status saved = file->save(house_);
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, handler);
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error().message, HasSubstr("File too large"));
    EXPECT_EQ(bytesOf(house_), Before);
    EXPECT_THAT(names(folder_.path()), UnorderedElementsAre("house.ifc"));
    EXPECT_TRUE(file->save(house_));
}

TEST_F(Files, OpeningIsCancelledByTheProgress) {
    std::string data;
    for (int i = 1; data.size() < (64U << 20U); ++i)
        data += "/**/#" + std::to_string(i) + "=A('" + std::string(50, 'x') + "');\n";
    const fs::path large = folder_.write("large.ifc", fileOf(data));
    std::uint64_t last = 0;
    OpenOptions options;
    options.progress = [&last](std::uint64_t done, std::uint64_t total) {
        EXPECT_LE(done, total);
        EXPECT_GE(done, last);
        last = done;
        return false;
    };
    const auto file = StepFile::open(large, options);
    // A fast machine may be done before the progress is asked.
    if (last != 0) {
        ASSERT_FALSE(file);
        EXPECT_THAT(file.error().message, HasSubstr("cancelled"));
    }
}

/// From 16 MiB on several threads read.
TEST_F(Files, OfAnyLengthAreReadToTheByteByThreads) {
    constexpr std::size_t Helped = std::size_t{16} << 20U;
    std::string data;
    for (int i = 1; data.size() < Helped; ++i)
        data += "#" + std::to_string(i) + "=A('" + std::string(100, static_cast<char>('a' + i % 26)) + "');\n";
    for (const std::size_t size : {Helped - 1, Helped, Helped + 1, Helped + (std::size_t{5} << 20U)}) {
        std::string bytes = fileOf(data);
        if (bytes.size() > size) bytes.resize(size);
        while (bytes.size() < size) bytes += bytes.substr(0, size - bytes.size());
        const auto file = openFile(folder_.write("long.ifc", bytes));
        EXPECT_EQ(file->byteCount(), size);
        EXPECT_TRUE(file->bytes() == bytes) << size;
    }
}

class WholeModel : public ::testing::TestWithParam<std::string> {};

TEST_P(WholeModel, IsUnderstoodWholeAndSavedByteForByte) {
    const TempFolder folder;
    const auto file = openFile(GetParam());
    EXPECT_THAT(remarks(*file), IsEmpty());
    EXPECT_GT(file->slotCount(), 1000U);
    Instance instance;
    for (Slot slot = 0; slot < file->slotCount(); ++slot) {
        ASSERT_TRUE(file->read(slot, instance)) << file->text(slot);
        ASSERT_EQ(file->find(instance.id), slot);
        for (const Value& value : instance.arguments) ASSERT_NE(value.kind, ValueKind::Malformed) << file->text(slot);
    }
    ASSERT_TRUE(file->save(folder.path() / "copy.ifc"));
    EXPECT_EQ(bytesOf(folder.path() / "copy.ifc"), bytesOf(GetParam()));
}

TEST_P(WholeModel, WithManyEditsIsUndoneToTheByte) {
    const auto file = openFile(GetParam());
    const std::string original = file->bytes();
    Instance instance;
    ASSERT_TRUE(file->begin());
    for (Slot slot = 0; slot < file->slotCount(); slot += 7) {
        ASSERT_TRUE(file->read(slot, instance));
        for (const Value& value : instance.arguments) {
            if (value.kind != ValueKind::String) continue;
            ASSERT_TRUE(file->replaceValue(slot, value, "'changed'"));
            break;
        }
    }
    ASSERT_TRUE(file->append("IFCLABEL('new')", 0));
    ASSERT_TRUE(file->commit("Edits"));
    EXPECT_NE(file->bytes(), original);
    EXPECT_THAT(remarks(*opened(file->bytes())), IsEmpty());
    ASSERT_TRUE(file->undo());
    EXPECT_EQ(file->bytes(), original);
}

INSTANTIATE_TEST_SUITE_P(Models, WholeModel, ::testing::ValuesIn(testing_support::models()),
                         testing_support::nameOfModel);

}  // namespace
}  // namespace step_tests
