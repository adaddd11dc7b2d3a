// Saving on a disk that fails at any step: the old file stays whole, and the edits stay in the model.

#include "step/FaultyDisk.hpp"
#include "step/StepText.hpp"

#include <chrono>

namespace step_tests {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

const std::string Target = "/models/house.ifc";
const std::string Before = fileOf("#1=A(1);\n");
const std::string After = fileOf("#1=A(2);\n");

/// A model with one edit, to be saved on a disk that has its old version.
struct Saving {
    Saving() : edit(Before) {
        disk.put(Target, Before);
        EXPECT_TRUE(edit.replace(1, 0, "2"));
    }
    Status save(bool force = false) {
        SaveOptions options;
        options.disk = &disk;
        options.force = force;
        return edit.file->save(Target, options);
    }

    FaultyDisk disk;
    Editing edit;
};

const std::vector<std::string> Steps = {"resolve", "state", "create",  "write",      "takeOver",
                                        "sync",    "state", "replace", "syncFolder", "state"};

TEST(Save, SyncsTheFileBeforeTheNameAndTheFolderAfterIt) {
    Saving saving;
    ASSERT_TRUE(saving.save());
    EXPECT_EQ(saving.disk.calls, Steps);
    EXPECT_EQ(saving.disk.files[Target], After);
    EXPECT_FALSE(saving.edit.file->modified());
}

TEST(Save, OfANewFileTakesNothingOver) {
    Saving saving;
    saving.disk.files.clear();
    ASSERT_TRUE(saving.save());
    EXPECT_THAT(saving.disk.calls, ::testing::Not(::testing::Contains("takeOver")));
    EXPECT_EQ(saving.disk.files[Target], After);
}

class FailingStep : public ::testing::TestWithParam<std::size_t> {};

TEST_P(FailingStep, LeavesTheOldFileWholeAndNoOther) {
    for (const std::errc kind : {std::errc::no_space_on_device, std::errc::permission_denied,
                                 std::errc::read_only_file_system, std::errc::io_error}) {
        Saving saving;
        saving.disk.failing = GetParam();
        saving.disk.failure = std::make_error_code(kind);
        const Status saved = saving.save();
        ASSERT_FALSE(saved);
        EXPECT_EQ(saved.error().kind, ErrorKind::CannotWrite);
        EXPECT_THAT(saved.error().message, HasSubstr(saving.disk.failure.message()));
        EXPECT_THAT(saved.error().message, HasSubstr(Target));
        EXPECT_EQ(saving.disk.files[Target], Before);
        EXPECT_EQ(saving.disk.files.size(), 1U);
        EXPECT_EQ(saving.disk.temporaries, 0);
        EXPECT_TRUE(saving.edit.file->modified());
    }
}

TEST_P(FailingStep, CanBeTriedAgain) {
    Saving saving;
    saving.disk.failing = GetParam();
    saving.disk.failure = std::make_error_code(std::errc::no_space_on_device);
    ASSERT_FALSE(saving.save());
    const Status again = saving.save();
    EXPECT_TRUE(again) << again.error().message;
    EXPECT_EQ(saving.disk.files[Target], After);
}

INSTANTIATE_TEST_SUITE_P(UpToTheRename, FailingStep, ::testing::Range(std::size_t{0}, std::size_t{8}),
                         [](const auto& row) { return std::to_string(row.param) + Steps[row.param]; });

TEST(Save, WhoseFolderCannotBeSyncedSaysSoThoughTheFileIsThere) {
    Saving saving;
    saving.disk.failing = 8;
    saving.disk.failure = std::make_error_code(std::errc::io_error);
    const Status saved = saving.save();
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error().message, HasSubstr("the file was written"));
    EXPECT_EQ(saving.disk.files[Target], After);
    EXPECT_TRUE(saving.edit.file->modified());
    // The version there now is our own: no reason to refuse the next one.
    EXPECT_TRUE(saving.save());
}

class MemoryThatRunsOut : public ::testing::TestWithParam<std::size_t> {};

TEST_P(MemoryThatRunsOut, IsToldWithTheTruthAboutTheFile) {
    Saving saving;
    saving.disk.outOfMemory = GetParam();
    const Status saved = saving.save();
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, ErrorKind::CannotWrite);
    const bool replaced = saving.disk.files[Target] != Before;
    EXPECT_EQ(replaced, GetParam() > 7);
    EXPECT_EQ(saving.disk.files[Target], replaced ? After : Before);
    EXPECT_THAT(saved.error().message, HasSubstr(replaced ? "the file was written" : "the old file is untouched"));
    EXPECT_EQ(saving.disk.temporaries, 0);
    EXPECT_TRUE(saving.edit.file->modified());
}

TEST_P(MemoryThatRunsOut, DoesNotMakeTheFileSomebodyElses) {
    Saving saving;
    saving.disk.outOfMemory = GetParam();
    ASSERT_FALSE(saving.save());
    const Status again = saving.save();
    EXPECT_TRUE(again) << again.error().message;
    EXPECT_EQ(saving.disk.files[Target], After);
    EXPECT_FALSE(saving.edit.file->modified());
}

INSTANTIATE_TEST_SUITE_P(AtEachStep, MemoryThatRunsOut, ::testing::Range(std::size_t{0}, Steps.size()),
                         [](const auto& row) { return std::to_string(row.param) + Steps[row.param]; });

TEST(Save, OnAFullDiskSaysWhatToDo) {
    Saving saving;
    saving.disk.failing = 3;
    saving.disk.failure = std::make_error_code(std::errc::no_space_on_device);
    EXPECT_EQ(saving.save().error().message,
              "/models/house.ifc: No space left on device; free some space, or save in another place; the old file is "
              "untouched");
}

TEST(Save, OverAVersionThatSomebodyElseWroteIsRefused) {
    Saving saving;
    ASSERT_TRUE(saving.save());
    saving.disk.put(Target, "written by somebody else");
    ASSERT_TRUE(saving.edit.replace(1, 0, "3"));
    const Status saved = saving.save();
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, ErrorKind::ChangedSince);
    EXPECT_THAT(saved.error().message, HasSubstr("another program has changed the file"));
    EXPECT_EQ(saving.disk.files[Target], "written by somebody else");
    EXPECT_TRUE(saving.save(true));
    EXPECT_EQ(saving.disk.files[Target], fileOf("#1=A(3);\n"));
}

TEST(Save, OverAVersionWhoseTimeSomebodyElseSetBackIsRefused) {
    Saving saving;
    ASSERT_TRUE(saving.save());
    ASSERT_TRUE(saving.edit.replace(1, 0, "3"));
    const std::string other = fileOf("#1=A(7);\n");
    ASSERT_EQ(other.size(), After.size());
    saving.disk.putWithOldTime(Target, other);
    const Status saved = saving.save();
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, ErrorKind::ChangedSince);
    EXPECT_EQ(saving.disk.files[Target], other);
}

TEST(Save, OverAVersionThatSomebodyElseOnlyTouchedIsDone) {
    Saving saving;
    ASSERT_TRUE(saving.save());
    ASSERT_TRUE(saving.edit.replace(1, 0, "3"));
    saving.disk.putWithOldTime(Target, After);
    const Status saved = saving.save();
    EXPECT_TRUE(saved) << saved.error().message;
    EXPECT_EQ(saving.disk.files[Target], fileOf("#1=A(3);\n"));
}

TEST(Save, OverAVersionThatSomebodyElseWritesMeanwhileIsRefused) {
    Saving saving;
    saving.disk.intruding = 5;
    const Status saved = saving.save();
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error().message, HasSubstr("another program has changed the file since"));
    EXPECT_EQ(saving.disk.files[Target], "written by somebody else");
    EXPECT_EQ(saving.disk.temporaries, 0);
}

TEST(Save, WhereSomebodyDeletedTheFileWritesItAgain) {
    Saving saving;
    ASSERT_TRUE(saving.save());
    saving.disk.files.clear();
    EXPECT_TRUE(saving.save());
    EXPECT_EQ(saving.disk.files[Target], After);
}

TEST(Save, CancelledLeavesTheOldFile) {
    Saving saving;
    saving.disk.slowness = std::chrono::milliseconds(150);
    SaveOptions options;
    options.disk = &saving.disk;
    std::vector<std::uint64_t> told;
    options.progress = [&told](std::uint64_t done, std::uint64_t total) {
        told = {done, total};
        return false;
    };
    const Status saved = saving.edit.file->save(Target, options);
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error().message, HasSubstr("cancelled"));
    EXPECT_THAT(told, ElementsAre(After.size(), After.size()));
    EXPECT_EQ(saving.disk.files[Target], Before);
    EXPECT_EQ(saving.disk.temporaries, 0);
    EXPECT_TRUE(saving.edit.file->modified());
}

}  // namespace
}  // namespace step_tests
