// The add-on's start, its menu and its end.

#include "FakeHost.hpp"
#include "HostCalls.hpp"

#include <gmock/gmock.h>

using namespace testing_support;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

class AddOnLife : public FakeHostTest {
protected:
    std::vector<std::string> helpFolders() const {
        std::vector<std::string> paths;
        for (const auto& help : frontend::helpLocations())
            if (help.developerId == 0x58703953 && help.localId == -1312990621) paths.push_back(help.path);
        return paths;
    }
};

TEST_F(AddOnLife, NameAndDescriptionComeFromTheResources) {
    API_EnvirParams envir{};
    EXPECT_EQ(host_.addOn.exported.checkEnvironment(&envir), APIAddon_Normal);
    EXPECT_STREQ(envir.addOnInfo.name, "Quillmarsh Updates");
    EXPECT_THAT(envir.addOnInfo.description, HasSubstr("Applies Quillmarsh updates"));
}

TEST_F(AddOnLife, ForeignHostApplicationIsRefusedAndNothingFilled) {
    API_EnvirParams envir{};
    envir.applicationId = 1;
    EXPECT_EQ(host_.addOn.exported.checkEnvironment(&envir), APIAddon_DontRegister);
    EXPECT_STREQ(envir.addOnInfo.name, "");
    EXPECT_STREQ(envir.addOnInfo.description, "");
}

TEST_F(AddOnLife, MenuIsRegisteredWithItsPrompts) {
    EXPECT_EQ(host_.addOn.exported.registerInterface(), NoError);
    ASSERT_TRUE(host_.menu.has_value());
    EXPECT_EQ(host_.menu->menuStrResID, 32500);
    EXPECT_EQ(host_.menu->promptStrResID, 32520);
    EXPECT_EQ(host_.menu->position, 1);
    EXPECT_EQ(host_.menu->flags, 0U);
    EXPECT_THAT(host_.menu->reserved, ::testing::Each(0));
    EXPECT_EQ(debug_.text, "");
}

TEST_F(AddOnLife, FailedMenuRegistrationIsPassedBackAndLogged) {
    host_.menuError = APIERR_MEMFULL;
    EXPECT_EQ(host_.addOn.exported.registerInterface(), APIERR_MEMFULL);
    EXPECT_EQ(debug_.text, "ZUNACAddon:: RegisterInterface() ACAPI_Register_Menu failed\n");
}

TEST_F(AddOnLife, MenuHandlerIsInstalledForTheMenu) {
    host_.start();
    EXPECT_NE(host_.menuHandler, nullptr);
    EXPECT_EQ(host_.handledMenu, 32500);
    EXPECT_THAT(debug_.text, Not(HasSubstr("Install_MenuHandler failed")));
}

TEST_F(AddOnLife, FailedMenuHandlerIsPassedBackAndHelpIsRegisteredAllTheSame) {
    host_.handlerError = APIERR_BADID;
    EXPECT_EQ(host_.addOn.initialize(&host_.client), APIERR_BADID);
    EXPECT_THAT(debug_.text, HasSubstr("ZUNACAddon:: Initialize() ACAPI_Install_MenuHandler failed\n"));
    EXPECT_EQ(helpFolders().size(), 1U);
}

TEST_F(AddOnLife, HelpIsTheFolderThatHoldsTheBundle) {
    host_.start();
    const std::string folderOfBundle = realBundle().parent_path().string();
    EXPECT_THAT(helpFolders(), ::testing::ElementsAre(folderOfBundle));
    EXPECT_THAT(debug_.text, HasSubstr("helpLoc is OK\nZUNACAddon:: Additional Help at: \"" + folderOfBundle + "\"\n"));
    EXPECT_THAT(debug_.text, Not(HasSubstr("register additional help failed")));
}

TEST_F(AddOnLife, HelpIsToldAsItWasBeforeItsRegistration) {
    HostCalls calls;
    calls.clearHelpLocations = true;
    host_.start();
    EXPECT_THAT(debug_.text, HasSubstr("Additional Help at: \"" + realBundle().parent_path().string() + "\"\n"));
}

TEST_F(AddOnLife, HelpIsGoneAfterTheEnd) {
    host_.start();
    EXPECT_EQ(host_.addOn.exported.freeData(), NoError);
    EXPECT_TRUE(helpFolders().empty());
}

TEST_F(AddOnLife, FailedHelpRegistrationIsLoggedAndTheEndSucceedsAllTheSame) {
    const IO::Location taken("/taken");
    DG::RegisterAdditionalHelpLocation(0x58703953, -1312990621, &taken, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(host_.addOn.initialize(&host_.client), NoError);
    EXPECT_THAT(debug_.text, HasSubstr("\"\nregister additional help failed\n"));

    DG::UnregisterAdditionalHelpLocation(0x58703953, -1312990621);
    EXPECT_EQ(host_.addOn.exported.freeData(), NoError);
}

TEST_F(AddOnLife, SpecialFolderIsLoggedOnALineOfItsOwn) {
    host_.addOn.put<HostSlot::Environment>([](void*, UInt32 code, void* par1, void* par2, void* par3) -> GSErrCode {
        EXPECT_EQ(code, 0x47535046U);
        EXPECT_EQ(*static_cast<Int32*>(par1), 12);
        EXPECT_EQ(par3, nullptr);
        *static_cast<IO::Location*>(par2) = IO::Location("/help/100%s");
        return NoError;
    });
    EXPECT_EQ(host_.addOn.bind(), NoError);
    host_.start();
    EXPECT_EQ(debug_.text.substr(0, debug_.text.find('\n') + 1), "px=/help/100%s\n");
}

TEST_F(AddOnLife, HostWithoutSpecialFoldersIsLoggedWithAnEmptyOne) {
    host_.start();
    EXPECT_EQ(debug_.text.substr(0, 4), "px=\n");
}

TEST_F(AddOnLife, OtherMenuRunsNothing) {
    host_.start();
    EXPECT_EQ(host_.pickMenuItem(1, 32499), NoError);
    EXPECT_EQ(host_.pickMenuItem(2, 32520), NoError);
}

TEST_F(AddOnLife, UnknownItemRunsNothing) {
    host_.start();
    for (const Int32 item : {0, 3, -1}) EXPECT_EQ(host_.pickMenuItem(item), NoError);
}

TEST_F(AddOnLife, FirstItemAsksForAnUpdateFile) {
    view_.cancelNextFile();
    EXPECT_EQ(host_.pickMenuItem(1), NoError);
    EXPECT_EQ(view_.fileRequests().size(), 1U);
}

TEST_F(AddOnLife, SecondItemOpensTheLookupDialog) {
    view_.inNextDialog([](frontend::Dialog& dialog) { EXPECT_EQ(dialog.resourceId(), 32500); });
    EXPECT_EQ(host_.pickMenuItem(2), NoError);
}

// --- The help folder, for paths as other systems have them ---------------------------------------------------------

struct PathCase {
    const char* bundle;
    const char* help;
};

class HelpFolder : public ::testing::TestWithParam<PathCase> {};

TEST_P(HelpFolder, IsCutFromTheBundlePath) {
    DebugCapture debug;
    const ScriptedBundlePath path(GetParam().bundle);
    FakeHost host;
    EXPECT_EQ(host.addOn.initialize(&host.client), NoError);
    EXPECT_THAT(debug.text, HasSubstr("Additional Help at: \"" + std::string(GetParam().help) + "\"\n"));
}

INSTANTIATE_TEST_SUITE_P(Separators, HelpFolder,
                         ::testing::Values(PathCase{R"(C:\Add-Ons\ZUNACAddin19.apx)", R"(C:\Add-Ons)"},
                                           PathCase{"ZUNACAddin19.bundle", "ZUNACAddin19.bundle"},
                                           PathCase{"/Add-Ons/ZUNAC.bundle", "/Add-Ons"},
                                           PathCase{R"(/Add-Ons/odd\name.bundle)", "/Add-Ons"},
                                           PathCase{R"(D:\odd/name\ZUNAC.apx)", R"(D:\odd)"}));

TEST(HelpFolderAtTheRoot, IsNoLocationAndIsNotRegistered) {
    DebugCapture debug;
    const ScriptedBundlePath path("/ZUNAC.bundle");
    FakeHost host;
    EXPECT_EQ(host.addOn.initialize(&host.client), NoError);
    EXPECT_THAT(debug.text, HasSubstr("helpLoc is error\n"));
    EXPECT_THAT(debug.text, HasSubstr("register additional help failed\n"));
    EXPECT_TRUE(frontend::helpLocations().empty());
}

}  // namespace
