#include "HostCalls.hpp"

#include "DialogManager.hpp"

#include <CoreFoundation/CoreFoundation.h>
#include <dlfcn.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <optional>

namespace testing_support {

struct StandIns {
    static inline std::optional<std::string> bundlePath;
    static inline HostCalls* calls = nullptr;
    static inline bool readsFail = false;
    static inline std::string failing;

    static void note(Int16 item) {
        if (calls != nullptr) calls->items_.push_back(item);
    }
};

namespace {

/// The function that this program takes the place of.
template <class Function>
Function real(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

ScriptedBundlePath::ScriptedBundlePath(std::string path) {
    StandIns::bundlePath = std::move(path);
}

ScriptedBundlePath::~ScriptedBundlePath() {
    StandIns::bundlePath.reset();
}

HostCalls::HostCalls() {
    StandIns::calls = this;
}

HostCalls::~HostCalls() {
    StandIns::calls = nullptr;
}

NoCoreFoundation::NoCoreFoundation(std::string function) {
    StandIns::failing = std::move(function);
}

NoCoreFoundation::~NoCoreFoundation() {
    StandIns::failing.clear();
}

FailingReads::FailingReads() {
    StandIns::readsFail = true;
}

FailingReads::~FailingReads() {
    StandIns::readsFail = false;
}

}  // namespace testing_support

using testing_support::StandIns;

// The program's own definitions come before the frameworks' and the C library's in the eyes of every image.

Boolean CFStringGetCString(CFStringRef text, char* buffer, CFIndex bufferSize, CFStringEncoding encoding) {
    if (!StandIns::bundlePath) {
        return testing_support::real<decltype(&CFStringGetCString)>("CFStringGetCString")(text, buffer, bufferSize,
                                                                                          encoding);
    }
    if (static_cast<CFIndex>(StandIns::bundlePath->size()) >= bufferSize) return 0;
    std::strcpy(buffer, StandIns::bundlePath->c_str());
    return 1;
}

CFStringRef CFURLCopyLastPathComponent(CFURLRef url) {
    if (StandIns::failing == __func__) return nullptr;
    return testing_support::real<decltype(&CFURLCopyLastPathComponent)>(__func__)(url);
}

CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFURLPathStyle pathStyle) {
    if (StandIns::failing == __func__) return nullptr;
    return testing_support::real<decltype(&CFURLCopyFileSystemPath)>(__func__)(url, pathStyle);
}

CFMutableStringRef CFStringCreateMutableCopy(CFAllocatorRef allocator, CFIndex maxLength, CFStringRef text) {
    if (StandIns::failing == __func__) return nullptr;
    return testing_support::real<decltype(&CFStringCreateMutableCopy)>(__func__)(allocator, maxLength, text);
}

GSErrCode DGInvalidateItem(Int16 dialogId, Int16 item) {
    StandIns::note(item);
    return testing_support::real<decltype(&DGInvalidateItem)>("_Z16DGInvalidateItemss")(dialogId, item);
}

bool DG::RegisterAdditionalHelpLocation(UInt32 developerId, Int32 localId, const IO::Location* location,
                                        const GS::UniString* menuText, const GS::UniString* indexFile,
                                        const IO::Location* secondLocation, const GS::UniString* secondIndexFile) {
    if (StandIns::calls != nullptr && StandIns::calls->clearHelpLocations) {
        const_cast<IO::Location*>(location)->Clear();
        return true;
    }
    return testing_support::real<decltype(&DG::RegisterAdditionalHelpLocation)>(
        "_ZN2DG30RegisterAdditionalHelpLocationEjiPKN2IO8LocationEPKN2GS9UniStringES7_S3_S7_")(
        developerId, localId, location, menuText, indexFile, secondLocation, secondIndexFile);
}

extern "C" __attribute__((visibility("default"))) ssize_t read(int file, void* target, std::size_t count);
ssize_t read(int file, void* target, std::size_t count) {
    const auto got = static_cast<ssize_t>(syscall(SYS_read, file, target, count));
    if (got != 0 || !StandIns::readsFail) return got;
    errno = EIO;
    return -1;
}
