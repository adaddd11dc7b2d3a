// What the binding does without a slot of the host: resource texts, memory, the image's own place, its end.

#include "DriverAddOn.hpp"
#include "FailingMemory.hpp"

#include <gmock/gmock.h>

#include <dlfcn.h>

#include <cstring>

using namespace testing_support;

namespace {

class OwnModule : public ::testing::Test {
protected:
    RawHelpers addOn_;
};

// --- Texts of the resources ----------------------------------------------------------------------------------------

class ResourceTexts : public OwnModule {
protected:
    std::string text(Int16 resID, Int32 index) {
        char buffer[260];
        std::memset(buffer, '!', sizeof buffer);
        found_ = addOn_->ACAPI_Resource_GetLocStr(buffer, resID, index, addOn_->ACAPI_GetOwnResModule());
        EXPECT_EQ(std::string(buffer + 256, 4), "!!!!");
        return buffer;
    }
    bool found_ = false;
};

TEST_F(ResourceTexts, AreReadByNumber) {
    EXPECT_EQ(text(420, 3), "Tür");
    EXPECT_TRUE(found_);
}

TEST_F(ResourceTexts, AreCutBetweenTwoCharacters) {
    EXPECT_EQ(text(420, 1).size(), 255U);
    const std::string cut = text(420, 2);
    EXPECT_EQ(cut.size(), 254U);
    EXPECT_EQ(cut.back(), '3');
}

TEST_F(ResourceTexts, UnknownOnesAreEmpty) {
    for (const auto& [list, index] : {std::pair<Int16, Int32>{420, 0}, {420, 4}, {421, 1}, {430, 1}}) {
        EXPECT_EQ(text(list, index), "") << list << "/" << index;
        EXPECT_FALSE(found_);
    }
}

TEST_F(ResourceTexts, AreReadWholeAsUnicode) {
    GS::UniString whole;
    EXPECT_TRUE(addOn_->ACAPI_Resource_GetLocUStr(&whole, 420, 2, addOn_->ACAPI_GetOwnResModule()));
    EXPECT_EQ(whole.GetLength(), 255U);
    EXPECT_FALSE(addOn_->ACAPI_Resource_GetLocUStr(&whole, 420, 9, addOn_->ACAPI_GetOwnResModule()));
}

TEST_F(ResourceTexts, FixedOnesHaveListsOfTheirOwn) {
    char buffer[256];
    EXPECT_TRUE(addOn_->ACAPI_Resource_GetFixStr(buffer, 430, 1, addOn_->ACAPI_GetOwnResModule()));
    EXPECT_STREQ(buffer, "Fixed");
    EXPECT_FALSE(addOn_->ACAPI_Resource_GetFixStr(buffer, 420, 3, addOn_->ACAPI_GetOwnResModule()));
    EXPECT_STREQ(buffer, "");
}

// --- Memory --------------------------------------------------------------------------------------------------------

TEST_F(OwnModule, BlocksAreFreedAndForgotten) {
    GSPtr ptr = BMAllocatePtr(8, ALLOCATE_CLEAR, 0);
    GSHandle handle = BMAllocateHandle(8, ALLOCATE_CLEAR, 0);
    addOn_->ACAPI_FreePtr(&ptr);
    addOn_->ACAPI_DisposeHandle(&handle);
    EXPECT_EQ(ptr, nullptr);
    EXPECT_EQ(handle, nullptr);
    addOn_->ACAPI_FreePtr(&ptr);
    addOn_->ACAPI_DisposeHandle(&handle);
    EXPECT_EQ(liveHandles(), 0);
}

TEST_F(OwnModule, BlocksOfBlocksAreFreedWithTheirMembers) {
    GSHandle handles[3] = {BMAllocateHandle(8, 0, 0), nullptr, BMAllocateHandle(0, 0, 0)};
    GSHandle array = BMAllocateHandle(sizeof handles, 0, 0);
    std::memcpy(*array, handles, sizeof handles);
    addOn_->ACAPI_DisposeHandleArray(&array);
    EXPECT_EQ(array, nullptr);
    EXPECT_EQ(liveHandles(), 0);

    GSPtr ptrs[2] = {BMAllocatePtr(8, 0, 0), BMAllocatePtr(8, 0, 0)};
    GSPtr ptrArray = BMAllocatePtr(sizeof ptrs, 0, 0);
    std::memcpy(ptrArray, ptrs, sizeof ptrs);
    addOn_->ACAPI_FreePtrArray(&ptrArray);
    EXPECT_EQ(ptrArray, nullptr);
    addOn_->ACAPI_FreePtrArray(&ptrArray);
    addOn_->ACAPI_DisposeHandleArray(&array);
    addOn_->ACAPI_FreePtrArray(nullptr);
    addOn_->ACAPI_DisposeHandleArray(nullptr);
    EXPECT_EQ(liveHandles(), 0);
}

// --- The image's own place -----------------------------------------------------------------------------------------

TEST_F(OwnModule, OwnLocationIsTheBundle) {
    IO::Location location;
    EXPECT_EQ(addOn_->ACAPI_GetOwnLocation(location), NoError);
    EXPECT_EQ(narrow(location.GetPath()), driverBundle().string());
    IO::Location again;
    EXPECT_EQ(addOn_->ACAPI_GetOwnLocation(again), NoError);
    EXPECT_EQ(again.GetPath(), location.GetPath());
    EXPECT_EQ(*addOn_->gOwnLocationData, *addOn_->GetBundlePath_bundlePath);
    EXPECT_STREQ(*addOn_->gDllFileName, "driveraddon.bundle");
}

TEST_F(OwnModule, NoBundleHasNoPathAndNoResources) {
    EXPECT_EQ(addOn_->GetBundlePath(nullptr), *addOn_->GetBundlePath_emptyStr);
    EXPECT_STREQ(addOn_->DllMainImp_GetLocation(nullptr), "");
    EXPECT_STREQ(addOn_->DllMainImp_GetResModuleSpec(nullptr), "");
    EXPECT_EQ(addOn_->DllMainImp_OpenResModule(nullptr), -1);
    EXPECT_EQ(addOn_->DllMainImp_OpenResModuleFromSpec(nullptr), -1);
    const char* const noPath = nullptr;
    EXPECT_EQ(addOn_->DllMainImp_OpenResModuleFromSpec(&noPath), -1);
}

TEST_F(OwnModule, ResourceModuleIsOpenedFromASpecAndClosed) {
    const std::string path = driverBundle().string();
    const char* const spec = path.c_str();
    const GSResModule module = addOn_->DllMainImp_OpenResModuleFromSpec(&spec);
    ASSERT_NE(module, -1);
    char name[256];
    EXPECT_TRUE(addOn_->ACAPI_Resource_GetLocStr(name, 32000, 1, module));
    EXPECT_STREQ(name, "Helpers");
    addOn_->DllMainImp_CloseResModule(module);
    EXPECT_FALSE(addOn_->ACAPI_Resource_GetLocStr(name, 32000, 1, module));
}

TEST_F(OwnModule, HandleIsTheHostsUntilItsLastCallHasEnded) {
    RawHelpers addOn;
    EXPECT_EQ(*addOn->gOwnClientPtr, nullptr);
    addOn.bind();
    addOn.initialize();
    EXPECT_EQ(*addOn->gOwnClientPtr, &addOn.client);
    void* atEnd = nullptr;
    *addOn->atEnd = [&] { atEnd = *addOn->gOwnClientPtr; };
    EXPECT_EQ(addOn.exported.freeData(), NoError);
    EXPECT_EQ(atEnd, &addOn.client);
    EXPECT_EQ(*addOn->gOwnClientPtr, nullptr);
}

TEST(ImageThatWaitsForItsStart, HasAnEmptyLocationAndNoResources) {
    TempFolder folder;
    const std::filesystem::path bundle = folder.path() / driverBundle().filename();
    std::filesystem::copy(driverBundle(), bundle, std::filesystem::copy_options::recursive);
    frontend::deferImageStarts(true);
    {
        RawHelpers addOn(bundle);
        EXPECT_STREQ(*addOn->gOwnLocationData, "");
        EXPECT_EQ(*addOn->gOwnResModule, -1);
        frontend::runDelayedStarts();
        EXPECT_EQ(*addOn->gOwnLocationData, bundle.string());
    }
}

TEST(ImageOutsideOfABundle, HasNoLocationAndNoResources) {
    TempFolder folder;
    const std::filesystem::path copy = folder.path() / "driveraddon";
    std::filesystem::copy(driverBundle() / "Contents" / "Linux" / "driveraddon", copy);
    void* const image = dlopen(copy.c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(image, nullptr) << dlerror();
    const Helpers& helpers = *reinterpret_cast<GetHelpersProc*>(dlsym(image, "GetHelpers"))();

    IO::Location location("/not/cleared");
    EXPECT_EQ(helpers.ACAPI_GetOwnLocation(location), APIERR_NOTINIT);
    EXPECT_EQ(location.GetStatus(), IO::Location::StatusError);
    EXPECT_STREQ(*helpers.gOwnLocationData, "");
    EXPECT_STREQ(*helpers.gDllFileName, "");
    EXPECT_EQ(helpers.ACAPI_GetOwnResModule(), -1);
    dlclose(image);
}

// --- The image's end -----------------------------------------------------------------------------------------------

/// Images of their own: one that another test holds open as well would not end.
class ImageEnd : public ::testing::Test {
protected:
    void SetUp() override { std::filesystem::copy(driverBundle(), bundle_, std::filesystem::copy_options::recursive); }

    TempFolder folder_;
    const std::filesystem::path bundle_ = folder_.path() / driverBundle().filename();
    DebugCapture debug_;
};

TEST_F(ImageEnd, CallsTheHookAfterItsLineWhereTheUseNeverEnded) {
    static std::string* output = nullptr;
    output = &debug_.text;
    {
        RawHelpers addOn(bundle_);
        addOn.bind();
        addOn.initialize();
        addOn->ACAPI_SetDllTermHookProc([] { *output += "[hook]"; });
        *addOn->gImpList_Inited = 0;  // Keeps the test's own ending of the use from being heard.
    }
    EXPECT_EQ(debug_.text,
              "Abnormal add-on termination (\"" + bundle_.string() + "\"), calling custom DllTermHookProc\n[hook]");
}

TEST_F(ImageEnd, IsSilentAndCallsNoHookAfterARegularEnd) {
    {
        RawHelpers addOn(bundle_);
        addOn.bind();
        addOn.initialize();
        addOn->ACAPI_SetDllTermHookProc([] { ADD_FAILURE() << "called at a regular end"; });
    }
    EXPECT_EQ(debug_.text, "");
}

}  // namespace
