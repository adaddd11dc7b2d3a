#include "File.hpp"
#include "Support.hpp"
#include "frameworks/FrontEnd.hpp"
#include "support/ActingAsNobody.hpp"
#include "support/ScriptedView.hpp"
#include "support/TempFolder.hpp"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <thread>

using IO::File;
using IO::Location;
using testing_support::utf8;

namespace {

Location at(const std::filesystem::path& path) {
    return Location(path.c_str());
}

/// Reads to the end, one byte a call, as an add-on does.
std::string readByBytes(File& file) {
    std::string bytes;
    char byte = 0;
    while (file.ReadBin(&byte, 1) == NoError) bytes += byte;
    return bytes;
}

class FileTest : public ::testing::Test {
protected:
    testing_support::TempFolder folder_;
};

}  // namespace

TEST_F(FileTest, BytesComeOneByOneAsTheyAre) {
    const std::string bytes("a\tb\r\n\0\xFF\xC3", 8);
    File file(at(folder_.write("update.txt", bytes)));
    ASSERT_EQ(file.Open(), NoError);
    EXPECT_EQ(readByBytes(file), bytes);
    char byte = 'x';
    EXPECT_EQ(file.ReadBin(&byte, 1), File::ErrEndOfFile);
    EXPECT_EQ(byte, 'x');
    EXPECT_EQ(file.Close(), NoError);
}

TEST_F(FileTest, FileLongerThanTheBufferIsReadWhole) {
    std::string bytes;
    for (int i = 0; i < 200'000; ++i) bytes += static_cast<char>(i * 31);
    const auto path = folder_.write("long.txt", bytes);
    File file(at(path));
    ASSERT_EQ(file.Open(), NoError);
    EXPECT_EQ(readByBytes(file), bytes);
    ASSERT_EQ(file.Open(), NoError) << "opened again, it begins at its beginning";
    std::string once(bytes.size(), '\0');
    EXPECT_EQ(file.ReadBin(once.data(), static_cast<USize>(once.size())), NoError);
    EXPECT_EQ(once, bytes);
}

TEST_F(FileTest, ReadingPastTheEndTellsHowMuchThereWas) {
    File file(at(folder_.write("short.txt", "abc")));
    ASSERT_EQ(file.Open(), NoError);
    char target[8] = {};
    USize count = 99;
    EXPECT_EQ(file.ReadBin(target, 2, &count), NoError);
    EXPECT_EQ(count, 2U);
    EXPECT_EQ(file.ReadBin(target, 8, &count), File::ErrEndOfFile);
    EXPECT_EQ(count, 1U);
    EXPECT_EQ(file.ReadBin(target, 0, &count), NoError);
    EXPECT_EQ(count, 0U);
}

TEST_F(FileTest, WhatCannotBeReadIsRefusedOnOpening) {
    const auto file = folder_.write("file", "x");
    struct {
        const char* what;
        Location location;
        GSErrCode expected;
    } const cases[] = {{"missing", at(folder_.path() / "missing"), File::ErrNotFound},
                       {"below a file", at(file / "below"), File::ErrNotFound},
                       {"nothing", Location(), File::ErrNotFound},
                       {"a folder", at(folder_.path()), File::ErrAccessDenied},
                       {"a name too long", at(folder_.path() / std::string(300, 'n')), File::ErrAccessDenied}};
    for (const auto& each : cases) {
        File refused(each.location);
        EXPECT_EQ(refused.Open(), each.expected) << each.what;
        char byte = 0;
        EXPECT_EQ(refused.ReadBin(&byte, 1), File::ErrNotOpen) << each.what;
        EXPECT_EQ(refused.Close(), File::ErrNotOpen) << each.what;
    }
    EXPECT_FALSE(std::filesystem::exists(folder_.path() / "missing"));
}

TEST_F(FileTest, FileWithoutPermissionIsRefused) {
    const auto secret = folder_.write("secret.txt", "x");
    const auto open = folder_.write("open.txt", "x");
    std::filesystem::permissions(secret, std::filesystem::perms::none);
    std::filesystem::permissions(folder_.path(), std::filesystem::perms::all);
    const testing_support::ActingAsNobody nobody;
    EXPECT_EQ(File(at(secret)).Open(), File::ErrAccessDenied);
    EXPECT_EQ(File(at(open)).Open(), NoError);
}

TEST_F(FileTest, ReadingGoesOnAfterASignal) {
    const auto path = folder_.path() / "pipe";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    struct sigaction interrupting {};
    struct sigaction before {};
    interrupting.sa_handler = [](int) {};  // Without SA_RESTART: the waiting read returns with EINTR.
    ASSERT_EQ(sigaction(SIGUSR1, &interrupting, &before), 0);
    const pthread_t reader = pthread_self();
    std::thread writer([&] {
        const auto interrupt = [reader] {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
            pthread_kill(reader, SIGUSR1);
        };
        interrupt();
        const int pipe = open(path.c_str(), O_RDWR);  // Opened for both, it waits for nobody, whatever the reader does.
        for (int i = 0; i < 5; ++i) interrupt();
        EXPECT_EQ(write(pipe, "line\n", 5), 5);
        close(pipe);
    });
    File file(at(path));
    const GSErrCode opened = file.Open();
    const std::string bytes = opened == NoError ? readByBytes(file) : std::string();
    writer.join();
    sigaction(SIGUSR1, &before, nullptr);
    EXPECT_EQ(opened, NoError);
    EXPECT_EQ(bytes, "line\n");
}

TEST_F(FileTest, LocationOfAnEmptyTextNamesNothing) {
    GS::UniString text("before");
    EXPECT_EQ(Location().GetStatus(), Location::StatusError);
    EXPECT_EQ(Location("").GetStatus(), Location::StatusError);
    EXPECT_EQ(Location("").ToDisplayText(&text), Location::StatusError);
    EXPECT_TRUE(text.IsEmpty());
    Location place("/models/update.txt");
    EXPECT_EQ(place.ToDisplayText(&text), Location::StatusOK);
    EXPECT_EQ(utf8(text), "/models/update.txt");
    place.Clear();
    EXPECT_EQ(place.GetStatus(), Location::StatusError);
}

// --- Choosing a file -----------------------------------------------------------------------------------------------

namespace {

const FTM::FileType TxtFile("TXT File", "txt", 0, 0, 0, nullptr, nullptr, true);

}  // namespace

TEST_F(FileTest, DialogOffersItsFiltersAndGivesTheChosenFile) {
    testing_support::ScriptedView user;
    user.pickNextFile((folder_.path() / "update.txt").string());
    FTM::FileTypeManager manager("types");
    DG::FileDialog dialog(DG::FileDialog::OpenFile);
    EXPECT_EQ(dialog.AddFilter(manager.AddType(FTM::FileType("IFC", "ifc", 0, 0, 0, nullptr, nullptr, true))), 0U);
    dialog.SelectFilter(dialog.AddFilter(manager.AddType(TxtFile, FTM::RootGroup), 0));
    dialog.SetTitle("Select a TXT file");
    EXPECT_EQ(dialog.GetSelectedFile().GetStatus(), Location::StatusError);
    EXPECT_TRUE(dialog.Invoke());
    EXPECT_EQ(utf8(dialog.GetSelectedFile().GetPath()), (folder_.path() / "update.txt").string());
    EXPECT_EQ(dialog.GetSelectedFile(1).GetStatus(), Location::StatusError);
    ASSERT_EQ(user.fileRequests().size(), 1U);
    const frontend::FileRequest& request = user.fileRequests()[0];
    EXPECT_EQ(utf8(request.title), "Select a TXT file");
    ASSERT_EQ(request.filters.size(), 2U);
    EXPECT_EQ(request.currentFilter, 1U);
    EXPECT_EQ(utf8(request.filters[1].description), "TXT File");
    EXPECT_EQ(utf8(request.filters[1].extension), "txt");
}

TEST_F(FileTest, CancelledDialogGivesNoFile) {
    testing_support::ScriptedView user;
    user.pickNextFile("/some/file");
    user.cancelNextFile();
    DG::FileDialog dialog(DG::FileDialog::OpenFile);
    EXPECT_TRUE(dialog.Invoke());
    EXPECT_FALSE(dialog.Invoke());
    EXPECT_EQ(dialog.GetSelectedFile().GetStatus(), Location::StatusError);
}

TEST_F(FileTest, DialogIsCancelledWhereNobodyIsThere) {
    EXPECT_FALSE(DG::FileDialog(DG::FileDialog::OpenFile).Invoke());
}

TEST_F(FileTest, ChosenFileOpensWhateverTheBytesOfItsName) {
    for (const char* const name : {"gr\xFCn.txt", "gru\xCC\x88n.txt", "gr\xC3\xBCn.txt", "gr\xFCn.txt"}) {
        testing_support::ScriptedView user;
        user.pickNextFile(folder_.write(name, name).string());
        DG::FileDialog dialog(DG::FileDialog::OpenFile);
        ASSERT_TRUE(dialog.Invoke());
        const Location chosen = dialog.GetSelectedFile();
        File file(chosen);
        ASSERT_EQ(file.Open(), NoError) << name;
        EXPECT_EQ(readByBytes(file), name) << "three files that look alike are told apart";
    }
}

TEST_F(FileTest, TypeIsKnownUntilItIsRemovedOrItsManagerGone) {
    DG::FileDialog dialog(DG::FileDialog::OpenFile);
    FTM::TypeID kept = 0;
    {
        FTM::FileTypeManager manager("types"), other("others");
        const FTM::TypeID removed = manager.AddType(TxtFile);
        kept = manager.AddType(TxtFile);
        EXPECT_NE(removed, kept);
        EXPECT_EQ(other.RemoveType(removed), FTM::FileTypeManager::ErrUnknownType);
        EXPECT_EQ(manager.RemoveType(removed), NoError);
        EXPECT_EQ(manager.RemoveType(removed), FTM::FileTypeManager::ErrUnknownType);
        EXPECT_EQ(dialog.AddFilter(removed), MaxUIndex);
        EXPECT_EQ(dialog.AddFilter(kept), 0U);
        EXPECT_EQ(manager.AddType(TxtFile, 7), 0U);
    }
    EXPECT_EQ(dialog.AddFilter(kept), MaxUIndex);
    EXPECT_EQ(dialog.AddFilter(0), MaxUIndex);
    dialog.SelectFilter(MaxUIndex);
    dialog.SelectFilter(5);
}

TEST_F(FileTest, FrontEndIsToldOfWhatCannotBeOpenedOrRead) {
    std::vector<std::pair<std::string, int>> errors;
    const auto before =
        frontend::setFileErrorSink([&errors](const std::string& path, int error) { errors.emplace_back(path, error); });
    const std::string missing = folder_.path() / "none.txt", folder = folder_.path();
    char byte = 0;
    {
        File file(at(missing));
        EXPECT_EQ(file.Open(), File::ErrNotFound);
        File folderFile(at(folder));
        EXPECT_EQ(folderFile.Open(), File::ErrAccessDenied);
        // It opens, but nothing is mapped at the address 0, where reading begins.
        File memory(at("/proc/self/mem"));
        EXPECT_EQ(memory.Open(), NoError);
        EXPECT_EQ(memory.ReadBin(&byte, 1), File::ErrRead);
        File whole(at(folder_.write("update.txt", "a")));
        EXPECT_EQ(whole.Open(), NoError);
        EXPECT_EQ(readByBytes(whole), "a");
    }
    frontend::setFileErrorSink(before);
    const std::vector<std::pair<std::string, int>> expected{
        {missing, ENOENT}, {folder, EISDIR}, {"/proc/self/mem", EIO}};
    EXPECT_EQ(errors, expected);
}
