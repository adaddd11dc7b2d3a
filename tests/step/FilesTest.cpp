// Opening and saving files of the real file system.

#include "step/StepText.hpp"
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

const std::string before = fileOf("#1=A(1);\n");
const std::string after = fileOf("#1=A(2);\n");

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

/// Root may write everything, so that root acts as somebody else meanwhile.
Status saveWithoutPrivileges(StepFile& file, const fs::path& path) {
    constexpr uid_t nobody = 65534;
    const uid_t user = ::geteuid();
    if (user == 0 && ::seteuid(nobody) != 0) throw std::runtime_error("cannot become somebody else");
    Status saved = file.save(path);
    if (::seteuid(user) != 0) throw std::runtime_error("cannot become oneself again");
    return saved;
}

class Files : public ::testing::Test {
protected:
    void TearDown() override {
        for (const std::string& name : names(folder.path())) EXPECT_FALSE(name.starts_with(".")) << name;
    }

    TempFolder folder;
    fs::path house = folder.write("house.ifc", before);
};

TEST_F(Files, AreSavedInPlace) {
    const auto file = openFile(house);
    edit(*file);
    const Status saved = file->save(house);
    ASSERT_TRUE(saved) << saved.error().message;
    EXPECT_EQ(bytesOf(house), after);
    EXPECT_FALSE(file->modified());
}

TEST_F(Files, AreSavedAgainAndAgain) {
    const auto file = openFile(house);
    for (const char* value : {"2", "3", "'four'"}) {
        edit(*file, value);
        ASSERT_TRUE(file->save(house));
        EXPECT_EQ(bytesOf(house), fileOf("#1=A(" + std::string(value) + ");\n"));
    }
}

TEST_F(Files, UndoneAfterSavingDifferFromTheFile) {
    const auto file = openFile(house);
    edit(*file);
    ASSERT_TRUE(file->save(house));
    ASSERT_TRUE(file->undo());
    EXPECT_TRUE(file->modified());
    ASSERT_TRUE(file->redo());
    EXPECT_FALSE(file->modified());
    ASSERT_TRUE(file->undo());
    ASSERT_TRUE(file->save(house));
    EXPECT_EQ(bytesOf(house), before);
    EXPECT_FALSE(file->modified());
}

TEST_F(Files, AreSavedUnderAnotherName) {
    const auto file = openFile(house);
    edit(*file);
    ASSERT_TRUE(file->save(folder.path() / "other.ifc"));
    EXPECT_EQ(bytesOf(house), before);
    EXPECT_EQ(bytesOf(folder.path() / "other.ifc"), after);
    EXPECT_FALSE(file->modified());
}

TEST_F(Files, AreSavedInAnotherFileSystem) {
    if (!fs::is_directory("/dev/shm")) GTEST_SKIP();
    const fs::path other = "/dev/shm/step-test-" + std::to_string(::getpid()) + ".ifc";
    const auto file = openFile(house);
    edit(*file);
    const Status saved = file->save(other);
    EXPECT_TRUE(saved) << saved.error().message;
    EXPECT_EQ(bytesOf(other), after);
    fs::remove(other);
}

TEST_F(Files, AreSavedByRelativeNames) {
    const fs::path where = fs::current_path();
    fs::current_path(folder.path());
    const auto file = openFile("house.ifc");
    edit(*file);
    const Status saved = file->save("house.ifc");
    fs::current_path(where);
    EXPECT_TRUE(saved) << saved.error().message;
    EXPECT_EQ(bytesOf(house), after);
}

TEST_F(Files, KeepTheirModeBits) {
    for (const mode_t mode : {0600U, 0640U, 0664U, 0755U}) {
        ::chmod(house.c_str(), mode);
        const auto file = openFile(house);
        edit(*file, "9");
        ASSERT_TRUE(file->save(house));
        struct stat found {};
        ASSERT_EQ(::stat(house.c_str(), &found), 0);
        EXPECT_EQ(found.st_mode & 07777U, mode);
        folder.write("house.ifc", before);
    }
}

TEST_F(Files, NewOnesGetTheModeBitsOfAnyNewFile) {
    const mode_t mask = ::umask(0027);
    const auto file = openFile(house);
    ASSERT_TRUE(file->save(folder.path() / "new.ifc"));
    ::umask(mask);
    struct stat found {};
    ASSERT_EQ(::stat((folder.path() / "new.ifc").c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777U, 0640U);
}

TEST_F(Files, KeepTheirOwner) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root may give files away";
    ASSERT_EQ(::chown(house.c_str(), 1234, 5678), 0);
    const auto file = openFile(house);
    edit(*file);
    ASSERT_TRUE(file->save(house));
    struct stat found {};
    ASSERT_EQ(::stat(house.c_str(), &found), 0);
    EXPECT_EQ(found.st_uid, 1234U);
    EXPECT_EQ(found.st_gid, 5678U);
}

TEST_F(Files, BehindALinkAreReplacedAndTheLinkStays) {
    fs::create_directory(folder.path() / "store");
    fs::rename(house, folder.path() / "store/house.ifc");
    fs::create_symlink("store/house.ifc", folder.path() / "inner.ifc");
    fs::create_symlink(folder.path() / "inner.ifc", house);
    const auto file = openFile(house);
    edit(*file);
    ASSERT_TRUE(file->save(house));
    EXPECT_TRUE(fs::is_symlink(house));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "inner.ifc"));
    EXPECT_EQ(bytesOf(folder.path() / "store/house.ifc"), after);
    EXPECT_THAT(names(folder.path() / "store"), UnorderedElementsAre("house.ifc"));
}

TEST_F(Files, BehindALinkThatLeadsNowhereAreMadeThere) {
    fs::create_symlink("missing.ifc", folder.path() / "link.ifc");
    const auto file = openFile(house);
    ASSERT_TRUE(file->save(folder.path() / "link.ifc"));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link.ifc"));
    EXPECT_EQ(bytesOf(folder.path() / "missing.ifc"), before);
}

TEST_F(Files, BehindACircleOfLinksAreRefused) {
    fs::create_symlink("b.ifc", folder.path() / "a.ifc");
    fs::create_symlink("a.ifc", folder.path() / "b.ifc");
    EXPECT_EQ(openFile(house)->save(folder.path() / "a.ifc").error().kind, ErrorKind::CannotWrite);
    EXPECT_EQ(StepFile::open(folder.path() / "a.ifc").error().kind, ErrorKind::CannotRead);
}

TEST_F(Files, AreFollowedThroughFortyLinks) {
    std::string target = "house.ifc";
    for (int i = 1; i <= 41; ++i) {
        const std::string link = "link" + std::to_string(i) + ".ifc";
        fs::create_symlink(target, folder.path() / link);
        target = link;
    }
    for (const char* link : {"link39.ifc", "link40.ifc"}) {
        const auto file = openFile(folder.path() / link);
        EXPECT_TRUE(file->save(folder.path() / link)) << link;
        EXPECT_TRUE(fs::is_symlink(folder.path() / link));
    }
    EXPECT_EQ(StepFile::open(folder.path() / "link41.ifc").error().kind, ErrorKind::CannotRead);
    EXPECT_EQ(openFile(house)->save(folder.path() / "link41.ifc").error().kind, ErrorKind::CannotWrite);
}

TEST_F(Files, OfSeveralNamesChangeUnderTheNameSavedAlone) {
    fs::create_hard_link(house, folder.path() / "other.ifc");
    const auto file = openFile(house);
    edit(*file);
    ASSERT_TRUE(file->save(house));
    EXPECT_EQ(bytesOf(house), after);
    EXPECT_EQ(bytesOf(folder.path() / "other.ifc"), before);
}

TEST_F(Files, ChangedByOthersSinceTheyWereOpenedAreNotOverwritten) {
    const auto file = openFile(house);
    edit(*file);
    folder.write("house.ifc", fileOf("#1=A(7);\n"));
    const Status saved = file->save(house);
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, ErrorKind::ChangedSince);
    EXPECT_THAT(saved.error().message, HasSubstr("another program has changed the file"));
    EXPECT_EQ(bytesOf(house), fileOf("#1=A(7);\n"));
    SaveOptions options;
    options.force = true;
    EXPECT_TRUE(file->save(house, options));
    EXPECT_EQ(bytesOf(house), after);
}

TEST_F(Files, ReplacedByOthersAreNotOverwrittenThroughAnyName) {
    fs::create_symlink("house.ifc", folder.path() / "link.ifc");
    const auto file = openFile(house);
    fs::rename(folder.write("new", before), house);
    EXPECT_FALSE(file->save(folder.path() / "link.ifc"));
    EXPECT_FALSE(file->save(folder.path() / "." / "house.ifc"));
}

TEST_F(Files, OverwrittenOrCutByOthersLeaveTheOpenedModelAlone) {
    const auto file = openFile(house);
    fs::resize_file(house, 0);
    EXPECT_EQ(file->bytes(), before);
    EXPECT_EQ(file->text(0), "#1=A(1);");
}

TEST_F(Files, ThatAreWriteProtectedAreNotReplaced) {
    ::chmod(house.c_str(), 0444);
    ::chmod(folder.path().c_str(), 0777);
    const auto file = openFile(house);
    edit(*file);
    const Status saved = saveWithoutPrivileges(*file, house);
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error().message, HasSubstr("write-protected"));
    EXPECT_EQ(bytesOf(house), before);
}

TEST_F(Files, InAFolderThatMayNotBeWrittenAreNotReplaced) {
    ::chmod(house.c_str(), 0666);
    ::chmod(folder.path().c_str(), 0555);
    const auto file = openFile(house);
    edit(*file);
    const Status saved = saveWithoutPrivileges(*file, house);
    ::chmod(folder.path().c_str(), 0755);
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error().message, HasSubstr("Permission denied; the folder or the file may not be written"));
    EXPECT_EQ(bytesOf(house), before);
}

TEST_F(Files, ThatAreNoneAreRefused) {
    const auto file = openFile(house);
    EXPECT_THAT(file->save(folder.path()).error().message, HasSubstr("folder or a device"));
    EXPECT_THAT(file->save("/dev/full").error().message, HasSubstr("folder or a device"));
    EXPECT_EQ(file->save(folder.path() / "missing" / "x.ifc").error().kind, ErrorKind::CannotWrite);
    EXPECT_THAT(StepFile::open(folder.path()).error().message, HasSubstr("folder or a device"));
    EXPECT_THAT(StepFile::open("/dev/null").error().message, HasSubstr("folder or a device"));
    EXPECT_THAT(StepFile::open(folder.path() / "missing.ifc").error().message, HasSubstr("No such file"));
    EXPECT_THAT(StepFile::open(house / "x").error().message, HasSubstr("Not a directory"));
    EXPECT_THAT(StepFile::open(folder.write("empty.ifc", "")).error().message, HasSubstr("the file is empty"));
}

TEST_F(Files, PipesDoNotKeepTheProgramWaiting) {
    const fs::path pipe = folder.path() / "pipe.ifc";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_THAT(StepFile::open(pipe).error().message, HasSubstr("folder or a device"));
    EXPECT_FALSE(openFile(house)->save(pipe));
}

TEST_F(Files, TooLargeForTheDiskLeaveTheOldOne) {
    const auto file = openFile(house);
    edit(*file, ("'" + std::string(100000, 'x') + "'").c_str());
    struct rlimit old {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit small = old;
    small.rlim_cur = 50000;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const Status saved = file->save(house);
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, handler);
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error().message, HasSubstr("File too large"));
    EXPECT_EQ(bytesOf(house), before);
    EXPECT_THAT(names(folder.path()), UnorderedElementsAre("house.ifc"));
    EXPECT_TRUE(file->save(house));
}

TEST_F(Files, OpeningIsCancelledByTheProgress) {
    std::string data;
    for (int i = 1; data.size() < (64U << 20U); ++i)
        data += "/**/#" + std::to_string(i) + "=A('" + std::string(50, 'x') + "');\n";
    const fs::path large = folder.write("large.ifc", fileOf(data));
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

class RealModel : public ::testing::TestWithParam<std::string> {};

TEST_P(RealModel, IsUnderstoodWholeAndSavedByteForByte) {
    const TempFolder folder;
    const auto file = openFile(GetParam());
    EXPECT_THAT(remarks(*file), IsEmpty());
    EXPECT_GT(file->instanceCount(), 1000U);
    Instance instance;
    for (Slot slot = 0; slot < file->instanceCount(); ++slot) {
        ASSERT_TRUE(file->read(slot, instance)) << file->text(slot);
        ASSERT_EQ(file->find(instance.id), slot);
        for (const Value& value : instance.arguments) ASSERT_NE(value.kind, ValueKind::Malformed) << file->text(slot);
    }
    ASSERT_TRUE(file->save(folder.path() / "copy.ifc"));
    EXPECT_EQ(bytesOf(folder.path() / "copy.ifc"), bytesOf(GetParam()));
}

TEST_P(RealModel, WithManyEditsIsUndoneToTheByte) {
    const auto file = openFile(GetParam());
    const std::string original = file->bytes();
    Instance instance;
    ASSERT_TRUE(file->begin());
    for (Slot slot = 0; slot < file->instanceCount(); slot += 7) {
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

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(RealModel);
INSTANTIATE_TEST_SUITE_P(Samples, RealModel, ::testing::ValuesIn(realModels()), [](const auto& row) {
    std::string name = fs::path(row.param).stem().string();
    std::erase_if(name, [](char c) { return c == '-' || c == '_' || c == '.'; });
    return name;
});

}  // namespace
}  // namespace step_tests
