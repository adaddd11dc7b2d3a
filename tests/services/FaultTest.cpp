// What an add-on may do wrong once it runs, and what the host makes of it.

#include "Probe.hpp"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace testing_support {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

using CrashIsAResult = Gallery;
using NoExceptionLeaves = Gallery;
using FailedCommandRollsBack = Gallery;
using CommandsDoNotNest = Gallery;
using EditsInCommands = Probe;
using MenuRecord = Gallery;
using ClientHandle = Gallery;
using RegistrationInTime = Gallery;
using BeforeInitialize = Gallery;

std::string code(GSErrCode error) {
    return std::to_string(error);
}

TEST_F(CrashIsAResult, CrashInAMenuCommandEndsTheCommandAlone) {
    use("CrashesInCommand");
    EXPECT_EQ(pick(), APIERR_COMMANDFAILED);
    ASSERT_EQ(host_.report().size(), 1U);
    EXPECT_TRUE(host_.report()[0].alert);
    EXPECT_THAT(host_.report()[0].text,
                HasSubstr("the add-on CrashesInCommand crashed in a menu command (a segmentation fault)"));
}

TEST_F(CrashIsAResult, CrashedAddOnIsNotCalledAgain) {
    use("CrashesInCommand");
    pick();
    EXPECT_EQ(pick(), APIERR_COMMANDFAILED);
    EXPECT_THAT(reportText(), HasSubstr("crashed before"));
}

TEST_F(CrashIsAResult, CrashedAddOnIsNotLoadedAgain) {
    use("CrashesInCommand");
    pick();
    host_.unloadAddOn();
    EXPECT_EQ(loadFailure(folder_.path() / "CrashesInCommand.bundle"),
              "it crashed before; start the program again to use it");
}

TEST_F(CrashIsAResult, ModelCanBeSavedAfterwards) {
    use("CrashesInCommand");
    pick();
    EXPECT_EQ(savedText(), houseWithWall().text());
}

TEST_F(CrashIsAResult, CrashInAnUndoableCommandIsRolledBack) {
    use("CrashesInUndoableCommand");
    pick();
    EXPECT_THAT(reportText(), HasSubstr("rename: 0\n"));
    EXPECT_EQ(wallName(), "Wall-01");
    EXPECT_FALSE(host_.model()->commandOpen());
    EXPECT_FALSE(host_.undo());
    EXPECT_EQ(savedText(), houseWithWall().text());
}

TEST_F(CrashIsAResult, CrashInADialogHandlerEndsTheDialog) {
    use("CrashesInDialogHandler");
    view_.inNextDialog([](frontend::Dialog& dialog) {
        EXPECT_TRUE(dialog.clickItem(1));
        EXPECT_TRUE(dialog.ended());
        EXPECT_FALSE(dialog.clickItem(1));
    });
    pick();
    EXPECT_THAT(reportText(), HasSubstr("crashed in a dialog handler (a segmentation fault)"));
}

TEST_F(CrashIsAResult, StackUsedUpIsACrashLikeAnyOther) {
    use("UsesUpTheStack");
    EXPECT_EQ(pick(), APIERR_COMMANDFAILED);
    EXPECT_THAT(reportText(), HasSubstr("crashed in a menu command"));
}

TEST_F(CrashIsAResult, AnotherAddOnCanBeLoadedAfterwards) {
    use("CrashesInCommand");
    pick();
    host_.unloadAddOn();
    ASSERT_TRUE(host_.loadAddOn(bundle("Sound")));
    EXPECT_EQ(pick(), NoError);
}

// The child is a process of its own: nothing that a test before it has set up makes up for what is gone at its exit.
class AtTheProgramsEnd : public CrashIsAResult {
protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
    void TearDown() override { GTEST_FLAG_SET(death_test_style, "fast"); }
};

TEST_F(AtTheProgramsEnd, NothingOfACrashedAddOnRunsWhenItWasUnloaded) {
    EXPECT_EXIT(
        {
            use("CrashesAndHasAnEndHook");
            pick();
            host_.unloadAddOn();
            std::exit(0);
        },
        ::testing::ExitedWithCode(0), Not(HasSubstr(" ran]")));
}

TEST_F(AtTheProgramsEnd, NothingOfACrashedAddOnRunsWhenItWasNot) {
    EXPECT_EXIT(
        {
            use("CrashesAndHasAnEndHook");
            pick();
            std::exit(0);
        },
        ::testing::ExitedWithCode(0), Not(HasSubstr(" ran]")));
}

TEST_F(AtTheProgramsEnd, EndHookOfAnAddOnThatIsStillLoadedReachesTheFrameworks) {
    EXPECT_EXIT(
        {
            use("HasAnEndHook");
            frontend::setDebugSink([](const char* text) { std::fputs(text, stderr); });
            std::exit(0);
        },
        ::testing::ExitedWithCode(0), HasSubstr("[the end hook ran]"));
}

TEST_F(AtTheProgramsEnd, RealAddOnMayStillBeLoaded) {
    EXPECT_EXIT(
        {
            loadAddOn();
            frontend::setDebugSink([](const char* text) { std::fputs(text, stderr); });
            std::exit(0);
        },
        ::testing::ExitedWithCode(0), HasSubstr("Abnormal add-on termination"));
}

// A fault inside the host may have left anything half done: going on would be dishonest.
TEST_F(CrashIsAResult, FaultInsideTheHostEndsTheProgram) {
    EXPECT_DEATH(
        {
            use("BadPointerToHost");
            pick();
        },
        "");
}

TEST_F(CrashIsAResult, AbortEndsTheProgramAndLeavesTheFileAlone) {
    EXPECT_EXIT(
        {
            use("AbortsInCommand");
            pick();
        },
        ::testing::KilledBySignal(SIGABRT), "");
}

TEST_F(NoExceptionLeaves, HostExceptionOutOfAMenuCommandIsReported) {
    use("ThrowsOutOfCommand");
    EXPECT_EQ(pick(), APIERR_COMMANDFAILED);
    EXPECT_EQ(reportText(),
              "the add-on ThrowsOutOfCommand let an exception out of a menu command: nobody catches this\n");
}

TEST_F(NoExceptionLeaves, AnythingThrownIsCaught) {
    use("ThrowsOddThings");
    EXPECT_EQ(pick(), APIERR_COMMANDFAILED);
    EXPECT_THAT(reportText(), HasSubstr("let an exception out of a menu command: it is of an unknown kind"));
}

TEST_F(NoExceptionLeaves, AddOnGoesOnAfterAnException) {
    use("ThrowsOutOfCommand");
    pick();
    pick();
    EXPECT_EQ(host_.report().size(), 2U);
    EXPECT_EQ(host_.report()[0].text, host_.report()[1].text);
}

TEST_F(NoExceptionLeaves, ExceptionInADialogHandlerEndsTheDialog) {
    use("ThrowsOutOfDialogHandler");
    view_.inNextDialog([](frontend::Dialog& dialog) {
        dialog.clickItem(1);
        EXPECT_TRUE(dialog.ended());
    });
    EXPECT_EQ(pick(), APIERR_COMMANDFAILED);
    EXPECT_THAT(reportText(), HasSubstr("let an exception out of a dialog handler: in the dialog"));
}

TEST_F(NoExceptionLeaves, ExceptionInAnUndoableCommandIsRolledBack) {
    use("ThrowsInUndoableCommand");
    EXPECT_EQ(pick(), APIERR_COMMANDFAILED);
    EXPECT_THAT(reportText(), HasSubstr("let an exception out of an undoable command: in the middle"));
    EXPECT_EQ(wallName(), "Wall-01");
    EXPECT_FALSE(host_.undo());
}

// --- Memory used up ---

/// The place of an allocation that fails inside one of the host's operations.
class UsedUpMemory : public Probe {
protected:
    void SetUp() override {
        probe();
        host_.setPointPicker([](const std::string&) -> std::optional<host::PickedPoint> { throw std::bad_alloc(); });
    }
    GSErrCode operationWithoutMemory() {
        API_GetPointType request{};
        return interface(APIIo_GetPoint, &request);
    }
};

TEST_F(UsedUpMemory, EndsTheCommandInsteadOfAnsweringAnError) {
    bool answered = false;
    inCommand(
        [&] {
            operationWithoutMemory();
            answered = true;
        },
        "APIERR_COMMANDFAILED");
    EXPECT_FALSE(answered);
    ASSERT_EQ(host_.report().size(), 1U);
    EXPECT_TRUE(host_.report()[0].alert);
    EXPECT_THAT(reportText(), HasSubstr("memory is used up: a menu command of the add-on Probe was ended"));
}

TEST_F(UsedUpMemory, TakesBackTheUndoableCommandAndFailsTheMenuCommandAroundIt) {
    const std::string before = savedText();
    GSErrCode inner = NoError;
    inCommand(
        [&] {
            inner = command([&] {
                EXPECT_EQ(named(setAttribute(guidText(1), "Name", "half done")), "NoError");
                return operationWithoutMemory();
            });
        },
        "APIERR_COMMANDFAILED");
    EXPECT_EQ(named(inner), "APIERR_COMMANDFAILED");
    EXPECT_FALSE(host_.undo());
    EXPECT_EQ(savedText(), before);
}

TEST_F(UsedUpMemory, LetsTheNextCommandRun) {
    inCommand([&] { operationWithoutMemory(); }, "APIERR_COMMANDFAILED");
    bool ran = false;
    inCommand([&] { ran = true; });
    EXPECT_TRUE(ran);
}

TEST_F(FailedCommandRollsBack, ChangesAreTakenBackAndTheErrorIsReported) {
    use("FailsInUndoableCommand");
    EXPECT_EQ(pick(), APIERR_BADVALUE);
    EXPECT_EQ(reportText(),
              "rename: 0\nCommand \"Gallery command\": failed, all its changes are taken back (APIERR_BADVALUE)\n");
    EXPECT_EQ(wallName(), "Wall-01");
    EXPECT_FALSE(host_.undo());
}

TEST_F(CommandsDoNotNest, InnerCommandIsRefusedAndTheOuterOneGoesOn) {
    use("NestsCommands");
    EXPECT_EQ(pick(), NoError);
    EXPECT_THAT(reportText(), HasSubstr("nested: " + code(APIERR_NESTING)));
    EXPECT_THAT(reportText(), HasSubstr("Command \"Gallery command\": "));
    EXPECT_EQ(wallName(), "by the outer command");
    EXPECT_TRUE(host_.undo());
    EXPECT_EQ(wallName(), "Wall-01");
}

TEST_F(EditsInCommands, EditWithoutOneIsRefusedAndReported) {
    use("EditsOutsideCommand");
    EXPECT_EQ(pick(), APIERR_REFUSEDCMD);
    EXPECT_EQ(wallName(), "Wall-01");
    ASSERT_EQ(host_.report().size(), 1U);
    EXPECT_THAT(reportText(), HasSubstr("Wall-01 (" + guidText(1) + "), Name: "));
    EXPECT_THAT(reportText(), HasSubstr("(APIERR_REFUSEDCMD)"));
}

TEST_F(MenuRecord, NamesNoMenuAfterTheCall) {
    use("KeepsStaleRecord");
    EXPECT_EQ(pick(), NoError);
    host_.unloadAddOn();
    EXPECT_EQ(debugOutput(), "stale record: menu 0 item 0\n");
}

TEST_F(ClientHandle, ForeignHandleAndNoneAreRefused) {
    use("ForeignHandle");
    EXPECT_EQ(pick(), NoError);
    EXPECT_EQ(reportText(), "foreign: " + code(APIERR_BADPARS) + "\nnone: " + code(APIERR_NOTINIT) + "\n");
}

TEST_F(RegistrationInTime, MenuRegisteredLateIsRefused) {
    use("RegistersLate");
    EXPECT_EQ(pick(), APIERR_REFUSEDCMD);
    EXPECT_EQ(host_.menus().size(), 1U);
}

TEST_F(BeforeInitialize, OnlyWhatHelpsToStartIsAnswered) {
    use("CallsTooEarly");
    EXPECT_EQ(reportText(), "element: " + code(APIERR_NOTINIT) + "\nrelease: 0\n");
}

}  // namespace
}  // namespace testing_support
