// The host as its programs see it: model, menus, commands, report, environment.

#include "Probe.hpp"

#include "services/Host.hpp"

#include <stdexcept>

namespace testing_support {
namespace {

using ::testing::HasSubstr;

using MenuItems = Probe;
using OneCommandAtATime = Probe;
using UndoableCommands = Probe;
using HostEnvironment = Probe;
using ReportLines = Probe;
using ModelOfTheHost = Probe;

TEST_F(MenuItems, ComeFromTheBundlesResources) {
    probe();
    ASSERT_EQ(host_.menus().size(), 1U);
    const host::Menu& menu = host_.menus()[0];
    EXPECT_EQ(menu.menuStrResID, GalleryMenu);
    EXPECT_STREQ(menu.title.ToCStr(), "Gallery");
    ASSERT_EQ(menu.items.size(), 2U);
    EXPECT_STREQ(menu.items[1].text.ToCStr(), "Second");
    EXPECT_STREQ(menu.items[0].prompt.ToCStr(), "What the first item does");
    EXPECT_STREQ(menu.items[1].prompt.ToCStr(), "");
    EXPECT_TRUE(menu.items[0].enabled);
    EXPECT_FALSE(menu.items[0].checked);
}

TEST_F(MenuItems, UnknownOnesCannotBePicked) {
    probe();
    for (const Int32 index : {0, 3, -1}) {
        EXPECT_EQ(named(host_.pickMenuItem(GalleryMenu, index)), "APIERR_BADINDEX") << index;
    }
    EXPECT_EQ(named(host_.pickMenuItem(1, 1)), "APIERR_BADINDEX");
}

TEST_F(MenuItems, HandlerNeedsARegisteredMenu) {
    probe();
    inCommand([&] {
        APIMenuCommandProc* const handler = [](const API_MenuParams*) { return GSErrCode{NoError}; };
        APIMenuCommandProc* const none = nullptr;
        EXPECT_EQ(named(call<HostSlot::Install_MenuHandler>(Int32{1}, handler)), "APIERR_BADID");
        EXPECT_EQ(named(call<HostSlot::Install_MenuHandler>(Int32{GalleryMenu}, none)), "APIERR_BADPARS");
    });
}

TEST_F(OneCommandAtATime, SecondOneIsRefusedWhileTheFirstRuns) {
    probe();
    inCommand([&] {
        EXPECT_EQ(named(pick()), "APIERR_REFUSEDCMD");
        EXPECT_EQ(named(host_.pickMenuItem(GalleryMenu, 2)), "APIERR_REFUSEDCMD");
    });
    EXPECT_EQ(named(host_.pickMenuItem(GalleryMenu, 2)), "NoError");
}

TEST_F(OneCommandAtATime, ModelAndAddOnStayWhileItRuns) {
    probe();
    const model::Model* const before = host_.model();
    inCommand([&] {
        EXPECT_FALSE(host_.openModel(folder_.path() / "model.ifc"));
        host_.closeModel();
        host_.adoptModel(nullptr);
        host_.unloadAddOn();
        EXPECT_EQ(host_.model(), before);
        EXPECT_TRUE(host_.addOnLoaded());
    });
}

TEST_F(OneCommandAtATime, UndoWaitsSavingDoesNot) {
    probe();
    inCommand([&] {
        EXPECT_EQ(named(command([&] { return setAttribute(guidText(1), "Name", "new"); })), "NoError");
        EXPECT_FALSE(host_.undo());
        EXPECT_THAT(savedText(), HasSubstr("'new'"));
        command([&] {
            EXPECT_FALSE(host_.save(folder_.path() / "within.ifc"));
            return GSErrCode{NoError};
        });
    });
    EXPECT_TRUE(host_.undo());
    EXPECT_FALSE(host_.redo() && host_.redo());
}

TEST_F(UndoableCommands, AreOneStepWithTheirName) {
    probe();
    inCommand([&] {
        EXPECT_EQ(named(command([&]() -> GSErrCode {
                      setAttribute(guidText(1), "Name", "new");
                      return setAttribute(guidText(1), "Tag", "T");
                  })),
                  "NoError");
    });
    EXPECT_EQ(host_.model()->undoSteps().undo, "Test command");
    EXPECT_TRUE(host_.undo());
    EXPECT_FALSE(host_.undo());
    EXPECT_EQ(savedText(), houseWithWall().text());
    EXPECT_TRUE(host_.redo());
    EXPECT_EQ(wallName(), "new");
}

TEST_F(UndoableCommands, OneThatChangesNothingLeavesNoStep) {
    probe();
    inCommand([&] { EXPECT_EQ(named(command([] { return GSErrCode{NoError}; })), "NoError"); });
    EXPECT_FALSE(host_.undo());
    EXPECT_FALSE(host_.model()->modified());
}

TEST_F(UndoableCommands, NeedAModelAndAFunction) {
    probe();
    inCommand([&] { EXPECT_EQ(named(command({})), "APIERR_BADPARS"); });
    host_.closeModel();
    inCommand([&] { EXPECT_EQ(named(command([] { return GSErrCode{NoError}; })), "APIERR_REFUSEDCMD"); });
    EXPECT_THAT(reportText(), HasSubstr("Command \"Test command\": no model is open (APIERR_REFUSEDCMD)"));
}

TEST_F(HostEnvironment, TellsTheReleaseAndTheHelpFolder) {
    probe();
    inCommand([&] {
        API_ReleaseNumber release{};
        EXPECT_EQ(named(environment(APIEnv_Application, &release)), "NoError");
        EXPECT_EQ(release.version, 19000);
        Int32 which = API_HelpFolder;
        IO::Location helpFolder;
        EXPECT_EQ(named(environment(APIEnv_GetSpecFolder, &which, &helpFolder)), "NoError");
        EXPECT_EQ(helpFolder.GetStatus(), IO::Location::StatusOK);
    });
}

TEST_F(HostEnvironment, RefusesWhatItDoesNotKnow) {
    probe();
    inCommand([&] {
        Int32 which = 11;
        IO::Location location("as before");
        EXPECT_EQ(named(environment(APIEnv_GetSpecFolder, &which, &location)), "APIERR_BADPARS");
        EXPECT_STREQ(location.GetPath().ToCStr(), "as before");
        EXPECT_EQ(named(environment(APIEnv_GetSpecFolder, nullptr, &location)), "APIERR_BADPARS");
        EXPECT_EQ(named(environment(APIEnv_GetSpecFolder, &which, nullptr)), "APIERR_BADPARS");
        EXPECT_EQ(named(environment(APIEnv_Application, nullptr)), "APIERR_BADPARS");
        EXPECT_EQ(named(environment(GSFourCharCode("NONE"), nullptr)), "APIERR_NOTSUPPORTED");
    });
}

TEST_F(ReportLines, AreKeptAndSentOn) {
    probe();
    std::vector<std::string> sent;
    host_.setReportSink([&](const host::ReportLine& line) { sent.push_back(line.text + (line.alert ? "!" : "")); });
    inCommand([&] {
        call<HostSlot::WriteReport>("quiet", static_cast<unsigned char>(0));
        call<HostSlot::WriteReport>("loud", static_cast<unsigned char>(1));
        const char* const nothing = nullptr;
        call<HostSlot::WriteReport>(nothing, static_cast<unsigned char>(1));
    });
    EXPECT_EQ(sent, (std::vector<std::string>{"quiet", "loud!"}));
    EXPECT_EQ(reportText(), "quiet\nloud\n");
}

TEST_F(ReportLines, SinkMayCauseFurtherLines) {
    probe();
    host_.setReportSink([&](const host::ReportLine& line) {
        if (line.text == "first") call<HostSlot::WriteReport>("second", static_cast<unsigned char>(0));
    });
    inCommand([&] { call<HostSlot::WriteReport>("first", static_cast<unsigned char>(0)); });
    EXPECT_EQ(reportText(), "first\nsecond\n");
}

TEST_F(ModelOfTheHost, FileThatCannotBeReadLeavesTheOldModel) {
    probe();
    const model::Model* const before = host_.model();
    EXPECT_FALSE(host_.openModel(folder_.path() / "none.ifc"));
    EXPECT_EQ(host_.model(), before);
}

TEST_F(ModelOfTheHost, WithoutOneThereIsNothingToUndoOrSave) {
    EXPECT_EQ(host_.model(), nullptr);
    EXPECT_FALSE(host_.undo());
    EXPECT_FALSE(host_.redo());
    EXPECT_FALSE(host_.save(folder_.path() / "nothing.ifc"));
}

TEST_F(ModelOfTheHost, SecondHostIsRefused) {
    EXPECT_THROW(host::Host(), std::logic_error);
    EXPECT_TRUE(host_.loadAddOn(bundle("Sound"))) << "the first one is still in charge";
}

}  // namespace
}  // namespace testing_support
