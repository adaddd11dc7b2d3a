#include "Bundle.hpp"

#include "CoreFoundationObjects.hpp"
#include "NativePaths.hpp"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

CFBundleRef GSCFXBundleCreateFromMachHeader(CFAllocatorRef, const void* imageHeader) {
    Dl_info image{};
    if (imageHeader == nullptr || dladdr(imageHeader, &image) == 0 || image.dli_fname == nullptr) return nullptr;
    const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(image.dli_fname, nullptr), &std::free);
    if (resolved == nullptr) return nullptr;
    std::filesystem::path folder = std::filesystem::path(resolved.get()).parent_path();
    for (; folder.has_relative_path(); folder = folder.parent_path())
        if (folder.filename() == "Contents") break;
    if (!folder.has_relative_path()) return nullptr;
    const std::string bundle = folder.parent_path().native();
    frameworks::rememberPath(bundle);
    return frameworks::createBundle(bundle);
}
