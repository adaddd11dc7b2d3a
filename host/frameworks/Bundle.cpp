#include "Bundle.hpp"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

#include "CoreFoundationObjects.hpp"

CFBundleRef GSCFXBundleCreateFromMachHeader(CFAllocatorRef, const void* imageHeader) {
    Dl_info image{};
    if (imageHeader == nullptr || dladdr(imageHeader, &image) == 0 || image.dli_fname == nullptr) return nullptr;
    const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(image.dli_fname, nullptr), &std::free);
    if (resolved == nullptr) return nullptr;
    std::filesystem::path folder = std::filesystem::path(resolved.get()).parent_path();
    for (; folder.has_relative_path(); folder = folder.parent_path())
        if (folder.filename() == "Contents") return frameworks::createBundle(folder.parent_path().native());
    return nullptr;
}
