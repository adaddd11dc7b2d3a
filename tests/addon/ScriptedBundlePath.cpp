#include "ScriptedBundlePath.hpp"

#include <CoreFoundation/CoreFoundation.h>
#include <dlfcn.h>

#include <cstring>
#include <optional>

namespace {

std::optional<std::string> scripted;

}  // namespace

namespace testing_support {

ScriptedBundlePath::ScriptedBundlePath(std::string path) {
    scripted = std::move(path);
}

ScriptedBundlePath::~ScriptedBundlePath() {
    scripted.reset();
}

}  // namespace testing_support

// The program's own definition comes before the frameworks' in the eyes of every image.
Boolean CFStringGetCString(CFStringRef text, char* buffer, CFIndex bufferSize, CFStringEncoding encoding) {
    if (!scripted) {
        static const auto frameworks =
            reinterpret_cast<decltype(&CFStringGetCString)>(dlsym(RTLD_NEXT, "CFStringGetCString"));
        return frameworks(text, buffer, bufferSize, encoding);
    }
    if (static_cast<CFIndex>(scripted->size()) >= bufferSize) return 0;
    std::strcpy(buffer, scripted->c_str());
    return 1;
}
