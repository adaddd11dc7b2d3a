// The load sequence, with every way in which a bundle can be wrong.

#include "Gallery.hpp"

#include "services/AddOnImage.hpp"
#include "services/ProgramFolder.hpp"

#include <dlfcn.h>

#include <filesystem>

namespace testing_support {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

using BundleShape = Gallery;
using EntryPoints = Gallery;
using VersionsMatch = Gallery;
using LoadOrder = Gallery;
using FailedStart = Gallery;
using Unloading = Gallery;

TEST_F(BundleShape, MissingFolderIsSaid) {
    EXPECT_EQ(loadFailure(folder_.path() / "None.bundle"), "there is no such folder");
}

TEST_F(BundleShape, NoneIsSearchedForWhereNoneIsNamed) {
    std::filesystem::copy(bundle("Sound"), folder_.path() / "Sound.bundle", std::filesystem::copy_options::recursive);
    std::filesystem::current_path(folder_.path());
    const model::Status loaded = host_.loadAddOn({});
    std::filesystem::current_path("/");
    ASSERT_FALSE(loaded);
    EXPECT_THAT(loaded.error().message, HasSubstr("name the add-on's bundle with --addon"));
}

TEST(ProgramFolder, IsWhereTheLinkOfTheSystemLeads) {
    ASSERT_TRUE(host::programFolder());
    EXPECT_EQ(*host::programFolder(), std::filesystem::read_symlink("/proc/self/exe").parent_path());
    EXPECT_EQ(host::defaultBundle().parent_path(), *host::programFolder());
}

TEST(ProgramFolder, IsUnknownWithoutThatLinkAndNeverTheWorkingFolder) {
    TempFolder folder;
    EXPECT_EQ(host::programFolder(folder.path() / "none"), std::nullopt);
    std::filesystem::create_symlink("relative/program", folder.path() / "link");
    EXPECT_EQ(host::programFolder(folder.path() / "link"), std::nullopt);
}

TEST_F(BundleShape, FolderWithoutContentsIsNoBundle) {
    EXPECT_EQ(loadFailure(folder_.path()), "it is no bundle: it has no folder Contents");
}

TEST_F(BundleShape, MissingImageIsNamed) {
    const auto path = folder_.path() / "Empty.bundle";
    std::filesystem::create_directories(path / "Contents");
    EXPECT_EQ(loadFailure(path), "it has no image Contents/Linux/Empty");
}

TEST_F(BundleShape, FileThatIsNoImageGivesTheLoadersReason) {
    std::filesystem::create_directories(folder_.path() / "Text.bundle/Contents/Linux");
    folder_.write("Text.bundle/Contents/Linux/Text", "this is no image");
    EXPECT_THAT(loadFailure(folder_.path() / "Text.bundle"), StartsWith("its image cannot be loaded: "));
}

TEST_F(BundleShape, ImageIsTheOneOfThePropertyList) {
    std::filesystem::create_directories(folder_.path() / "Renamed.bundle/Contents");
    folder_.write("Renamed.bundle/Contents/Info.plist",
                  "<dict>\n\t<key>CFBundleExecutable</key>\n\t<string>Inside</string>\n</dict>\n");
    EXPECT_EQ(host::imageOf(folder_.path() / "Renamed.bundle").filename(), "Inside");
}

TEST_F(BundleShape, PathMayEndInASlash) {
    EXPECT_EQ(host::imageOf("/some/Name.bundle/"), "/some/Name.bundle/Contents/Linux/Name");
    EXPECT_TRUE(host_.loadAddOn(bundle("Sound").string() + "/"));
}

TEST_F(BundleShape, UnresolvedSymbolIsFoundWhenLoading) {
    const std::string reason = loadFailure(bundle("UnresolvedSymbol"));
    EXPECT_THAT(reason, StartsWith("its image cannot be loaded: "));
    EXPECT_THAT(reason, HasSubstr("functionOfAnotherHost"));
}

TEST_F(BundleShape, FaultyResourcesKeepItFromLoading) {
    EXPECT_EQ(loadFailure(bundle("FaultyResources")), "its resource file cannot be read");
}

TEST_F(EntryPoints, MissingOneIsNamed) {
    EXPECT_EQ(loadFailure(bundle("MissingExports")), "its image has no entry point GetExportedFuncAddrs");
    EXPECT_EQ(loadFailure(bundle("MissingImports")), "its image has no entry point SetImportedFuncAddrs");
}

TEST_F(EntryPoints, FunctionMissingInTheRecordIsNamed) {
    EXPECT_EQ(loadFailure(bundle("NullFunction")), "its record has no function freeData");
}

TEST_F(VersionsMatch, OtherBindingIsRefused) {
    EXPECT_EQ(loadFailure(bundle("OtherInterfaceVersion")),
              "its interface version is 0x00140001, this host's is 0x00130001");
}

TEST_F(VersionsMatch, OtherInterfaceIsRefused) {
    EXPECT_EQ(loadFailure(bundle("OtherApiVersion")),
              "it is built for version 18000 of the host interface, this host has version 19000");
}

TEST_F(LoadOrder, SoundAddOnIsIntroducedRegisteredAndRuns) {
    ASSERT_TRUE(host_.loadAddOn(bundle("Sound")));
    EXPECT_EQ(host_.addOnName(), "Gallery");
    EXPECT_EQ(host_.addOnDescription(), "Shows how a host bears a fault");
    ASSERT_EQ(host_.menus().size(), 1U);
    EXPECT_EQ(pick(), NoError);
    EXPECT_TRUE(host_.report().empty()) << reportText();
}

TEST_F(LoadOrder, RefusedTableEndsIt) {
    EXPECT_EQ(loadFailure(bundle("RefusesTable")), "it refused the host's functions: APIERR_NOTSUPPORTED");
}

TEST_F(LoadOrder, UnwillingAddOnIsUnloadedWithoutFreeData) {
    EXPECT_EQ(loadFailure(bundle("Unwilling")), "it does not want to run in this host");
    EXPECT_TRUE(host_.report().empty()) << reportText();
}

TEST_F(LoadOrder, SecondAddOnIsRefusedAndTheFirstStays) {
    ASSERT_TRUE(host_.loadAddOn(bundle("Sound")));
    const model::Status second = host_.loadAddOn(bundle("Sound"));
    ASSERT_FALSE(second);
    EXPECT_THAT(second.error().message, HasSubstr(": another one is loaded"));
    EXPECT_EQ(pick(), NoError);
}

TEST_F(FailedStart, RegistrationsErrorIsNamedAndFreeDataIsCalled) {
    EXPECT_EQ(loadFailure(bundle("RegisterFails")), "its registerInterface failed: APIERR_MISSINGDEF");
    EXPECT_EQ(debugOutput(), "freeData after a failed start\n");
}

TEST_F(FailedStart, InitializesErrorIsNamedAndFreeDataIsCalled) {
    EXPECT_EQ(loadFailure(bundle("InitializeFails")), "its initialize failed: APIERR_MEMFULL");
    EXPECT_EQ(debugOutput(), "freeData after a failed start\n");
}

TEST_F(FailedStart, ExceptionInInitializeIsTold) {
    EXPECT_EQ(loadFailure(bundle("ThrowsInInitialize")),
              "the add-on ThrowsInInitialize let an exception out of initialize: no settings");
}

TEST_F(FailedStart, CrashInRegisterInterfaceIsTold) {
    EXPECT_THAT(loadFailure(bundle("CrashesInRegister")),
                StartsWith("the add-on CrashesInRegister crashed in registerInterface (a segmentation fault)"));
}

TEST_F(FailedStart, NextAddOnLoadsAfterwards) {
    loadFailure(bundle("InitializeFails"));
    EXPECT_TRUE(host_.loadAddOn(bundle("Sound")));
}

TEST_F(Unloading, ImageIsGoneFromMemory) {
    const auto image = bundle("Sound") / "Contents" / "Linux" / "Sound";
    ASSERT_TRUE(host_.loadAddOn(bundle("Sound")));
    host_.unloadAddOn();
    EXPECT_EQ(dlopen(image.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
}

TEST_F(Unloading, MenusAreGone) {
    ASSERT_TRUE(host_.loadAddOn(bundle("Sound")));
    host_.unloadAddOn();
    EXPECT_TRUE(host_.menus().empty());
    EXPECT_EQ(host_.addOnName(), "");
    EXPECT_EQ(pick(), APIERR_BADINDEX);
}

TEST_F(Unloading, AddOnCanBeLoadedAgain) {
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(host_.loadAddOn(bundle("Sound")));
        EXPECT_EQ(pick(), NoError);
        host_.unloadAddOn();
    }
}

TEST_F(Unloading, CrashInFreeDataIsReported) {
    ASSERT_TRUE(host_.loadAddOn(bundle("CrashesInFreeData")));
    host_.unloadAddOn();
    EXPECT_FALSE(host_.addOnLoaded());
    EXPECT_THAT(reportText(), HasSubstr("crashed in freeData"));
}

}  // namespace
}  // namespace testing_support
