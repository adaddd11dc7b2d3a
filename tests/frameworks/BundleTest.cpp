#include "Bundle.hpp"
#include "Support.hpp"
#include "support/TempFolder.hpp"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>

namespace fs = std::filesystem;
using testing_support::DebugOutput;

namespace {

/// Copies the probe into a bundle, loads it there, and holds the bundle that it finds.
class LoadedProbe {
public:
    LoadedProbe(const fs::path& folder) {
        fs::create_directories(folder);
        fs::copy_file(PROBE, folder / "probe");
        image_ = dlopen((folder / "probe").c_str(), RTLD_NOW | RTLD_LOCAL);
        if (image_ == nullptr) throw std::runtime_error(dlerror());
        bundle = reinterpret_cast<CFBundleRef (*)()>(dlsym(image_, "probeBundle"))();
    }
    ~LoadedProbe() {
        if (bundle != nullptr) CFRelease(bundle);
        dlclose(image_);
    }
    LoadedProbe(const LoadedProbe&) = delete;
    LoadedProbe& operator=(const LoadedProbe&) = delete;

    CFBundleRef bundle = nullptr;

private:
    void* image_;
};

/// What an add-on's binding does: the bundle's path in normal form C, or nothing where it does not fit.
template <std::size_t Room>
std::string pathOf(CFBundleRef bundle) {
    std::array<char, Room> buffer{'?'};
    const CFURLRef url = CFBundleCopyBundleURL(bundle);
    const CFStringRef path = CFURLCopyFileSystemPath(url, kCFURLPOSIXPathStyle);
    const CFMutableStringRef text = CFStringCreateMutableCopy(kCFAllocatorDefault, 0, path);
    CFStringNormalize(text, kCFStringNormalizationFormC);
    const Boolean fits = CFStringGetCString(text, buffer.data(), Room, kCFStringEncodingUTF8);
    for (const CFTypeRef object : {CFTypeRef(url), CFTypeRef(path), CFTypeRef(text)}) CFRelease(object);
    return fits != 0 ? std::string(buffer.data()) : "does not fit: '" + std::string(buffer.data()) + "'";
}

std::string lastComponent(CFBundleRef bundle) {
    std::array<char, 256> buffer{};
    const CFURLRef url = CFBundleCopyBundleURL(bundle);
    const CFStringRef name = CFURLCopyLastPathComponent(url);
    CFStringGetCString(name, buffer.data(), buffer.size(), kCFStringEncodingUTF8);
    CFRelease(name);
    CFRelease(url);
    return buffer.data();
}

/// A folder whose path has exactly this many bytes.
fs::path folderOfLength(const fs::path& parent, std::size_t length) {
    fs::path folder = parent;
    while (length - folder.native().size() > 202) folder /= std::string(100, 'd');
    return folder / std::string(length - folder.native().size() - 1, 'e');
}

class BundleTest : public ::testing::Test {
protected:
    ~BundleTest() override { EXPECT_EQ(frontend::liveCoreFoundationObjects(), 0U) << "a reference was not released"; }

    testing_support::TempFolder temporary_;
    const fs::path folder_ = fs::canonical(temporary_.path());
};

}  // namespace

TEST_F(BundleTest, IsTheFolderAboveTheImagesContents) {
    const LoadedProbe probe(folder_ / "Probe.bundle" / "Contents" / "Linux");
    ASSERT_NE(probe.bundle, nullptr);
    EXPECT_EQ(pathOf<1024>(probe.bundle), folder_ / "Probe.bundle");
    EXPECT_EQ(lastComponent(probe.bundle), "Probe.bundle");
}

TEST_F(BundleTest, IsTheInnermostOfNestedOnes) {
    const LoadedProbe probe(folder_ / "Outer" / "Contents" / "Inner" / "Contents" / "a" / "b");
    ASSERT_NE(probe.bundle, nullptr);
    EXPECT_EQ(pathOf<1024>(probe.bundle), folder_ / "Outer" / "Contents" / "Inner");
}

TEST_F(BundleTest, ImageOutsideOfABundleHasNone) {
    EXPECT_EQ(LoadedProbe(folder_ / "Loose").bundle, nullptr);
    EXPECT_EQ(GSCFXBundleCreateFromMachHeader(kCFAllocatorDefault, nullptr), nullptr);
    const int onTheStack = 0;
    EXPECT_EQ(GSCFXBundleCreateFromMachHeader(kCFAllocatorDefault, &onTheStack), nullptr);
}

TEST_F(BundleTest, PathIsGivenWithItsLinksResolved) {
    fs::create_directories(folder_ / "Real.bundle" / "Contents");
    fs::create_directory_symlink(folder_ / "Real.bundle", folder_ / "Link.bundle");
    const LoadedProbe probe(folder_ / "Link.bundle" / "Contents" / "Linux");
    ASSERT_NE(probe.bundle, nullptr);
    EXPECT_EQ(pathOf<1024>(probe.bundle), folder_ / "Real.bundle");
}

TEST_F(BundleTest, PathFitsUpToTheLastByteOrNotAtAll) {
    const LoadedProbe fitting(folderOfLength(folder_, 1023) / "Contents");
    const LoadedProbe tooLong(folderOfLength(folder_, 1024) / "Contents");
    ASSERT_NE(fitting.bundle, nullptr);
    ASSERT_NE(tooLong.bundle, nullptr);
    EXPECT_EQ(pathOf<1024>(fitting.bundle), folderOfLength(folder_, 1023));
    EXPECT_EQ(pathOf<1024>(tooLong.bundle), "does not fit: ''");
    EXPECT_EQ(pathOf<1025>(tooLong.bundle), folderOfLength(folder_, 1024));
}

TEST_F(BundleTest, ResourcesAreFoundBelowAFolderInAnotherNormalForm) {
    const fs::path bundle = folder_ / "Bu\xCC\x88ro.bundle";  // As a Mac writes it: u and a diaeresis.
    const LoadedProbe probe(bundle / "Contents" / "Linux");
    fs::create_directories(bundle / "Contents" / "Resources");
    ASSERT_NE(probe.bundle, nullptr);
    const std::string path = pathOf<1024>(probe.bundle);
    EXPECT_EQ(path, (folder_ / "B\xC3\xBCro.bundle").native());
    const GSResModule module = RSOpenResourceFile(path.c_str());
    EXPECT_NE(module, InvalidResModule);
    RSCloseResourceFile(module);
}

TEST_F(BundleTest, TextIsBroughtToEachNormalForm) {
    struct {
        CFStringNormalizationForm form;
        const char* expected;
    } const cases[] = {{kCFStringNormalizationFormC, "\xC3\xBC\xEF\xAC\x81"},
                       {kCFStringNormalizationFormD, "u\xCC\x88\xEF\xAC\x81"},
                       {kCFStringNormalizationFormKC,
                        "\xC3\xBC"
                        "fi"},
                       {kCFStringNormalizationFormKD,
                        "u\xCC\x88"
                        "fi"}};
    const LoadedProbe probe(folder_ / "u\xCC\x88\xEF\xAC\x81" / "Contents");
    const CFURLRef url = CFBundleCopyBundleURL(probe.bundle);
    const CFStringRef name = CFURLCopyLastPathComponent(url);
    for (const auto& each : cases) {
        const CFMutableStringRef text = CFStringCreateMutableCopy(kCFAllocatorDefault, 0, name);
        CFStringNormalize(text, each.form);
        char buffer[16] = {};
        EXPECT_EQ(CFStringGetCString(text, buffer, sizeof buffer, kCFStringEncodingUTF8), 1);
        EXPECT_STREQ(buffer, each.expected) << each.form;
        CFRelease(text);
    }
    CFRelease(name);
    CFRelease(url);
}

TEST_F(BundleTest, ReferenceLivesUntilItsLastRelease) {
    const LoadedProbe probe(folder_ / "Probe.bundle" / "Contents");
    const CFURLRef url = CFBundleCopyBundleURL(probe.bundle);
    EXPECT_EQ(frontend::liveCoreFoundationObjects(), 2U);
    EXPECT_EQ(CFRetain(url), url);
    CFRelease(url);
    EXPECT_EQ(frontend::liveCoreFoundationObjects(), 2U);
    CFRelease(url);
    EXPECT_EQ(frontend::liveCoreFoundationObjects(), 1U);
}

TEST_F(BundleTest, WrongReferencesAreReportedAndLetPass) {
    const LoadedProbe probe(folder_ / "Probe.bundle" / "Contents");
    const CFURLRef url = CFBundleCopyBundleURL(probe.bundle);
    CFRelease(url);
    const DebugOutput output;
    CFRelease(url);
    EXPECT_EQ(output.text.substr(0, output.text.find(':')), "CFRelease");
    CFRelease(nullptr);
    EXPECT_EQ(CFRetain(nullptr), nullptr);
    EXPECT_EQ(CFBundleCopyBundleURL(nullptr), nullptr);
    EXPECT_EQ(CFURLCopyLastPathComponent(nullptr), nullptr);
    EXPECT_EQ(CFURLCopyFileSystemPath(nullptr, kCFURLPOSIXPathStyle), nullptr);
    EXPECT_EQ(CFStringCreateMutableCopy(kCFAllocatorDefault, 0, nullptr), nullptr);
    CFStringNormalize(nullptr, kCFStringNormalizationFormC);
    char buffer[4] = "###";
    EXPECT_EQ(CFStringGetCString(nullptr, buffer, sizeof buffer, kCFStringEncodingUTF8), 0);
    EXPECT_STREQ(buffer, "");
}

TEST_F(BundleTest, TextIsGivenInUtf8OnlyAndWithinTheLimits) {
    const LoadedProbe probe(folder_ / "Probe.bundle" / "Contents");
    const CFURLRef url = CFBundleCopyBundleURL(probe.bundle);
    const CFStringRef name = CFURLCopyLastPathComponent(url);
    char buffer[16] = "###";
    constexpr CFStringEncoding MacRoman = 0;
    EXPECT_EQ(CFStringGetCString(name, buffer, sizeof buffer, MacRoman), 0);
    EXPECT_EQ(CFStringGetCString(name, buffer, 0, kCFStringEncodingUTF8), 0);
    EXPECT_EQ(CFStringGetCString(name, nullptr, 16, kCFStringEncodingUTF8), 0);
    EXPECT_EQ(CFStringGetCString(name, buffer, 12, kCFStringEncodingUTF8), 0);
    EXPECT_EQ(CFStringGetCString(name, buffer, 13, kCFStringEncodingUTF8), 1);
    EXPECT_STREQ(buffer, "Probe.bundle");
    EXPECT_EQ(CFStringCreateMutableCopy(kCFAllocatorDefault, 11, name), nullptr);
    const CFMutableStringRef copy = CFStringCreateMutableCopy(kCFAllocatorDefault, 12, name);
    EXPECT_NE(copy, nullptr);
    for (const CFTypeRef object : {CFTypeRef(url), CFTypeRef(name), CFTypeRef(copy)}) CFRelease(object);
}
