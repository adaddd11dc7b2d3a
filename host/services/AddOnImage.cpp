#include "services/AddOnImage.hpp"

#include "text/Message.hpp"

#include <dlfcn.h>
#include <algorithm>
#include <fstream>
#include <sstream>
#include <system_error>
#include <utility>
#include <vector>

namespace host {

namespace fs = std::filesystem;

namespace {

constexpr const char* GetExportedName = "GetExportedFuncAddrs";
constexpr const char* SetImportedName = "SetImportedFuncAddrs";

model::Error cannot(std::string reason) {
    return {model::ErrorKind::CannotRead, std::move(reason)};
}

/// The text of a property list's key. Info.plist is written by the build, so no general reader is needed.
std::string textOfKey(const std::string& propertyList, const std::string& key) {
    const std::string keyTag = "<key>" + key + "</key>";
    const std::string openTag = "<string>";
    const std::size_t atKey = propertyList.find(keyTag);
    if (atKey == std::string::npos) return {};
    const std::size_t open = propertyList.find_first_not_of(" \t\r\n", atKey + keyTag.size());
    if (open == std::string::npos || propertyList.compare(open, openTag.size(), openTag) != 0) return {};
    const std::size_t begin = open + openTag.size();
    const std::size_t end = propertyList.find("</string>", begin);
    return end == std::string::npos ? std::string() : propertyList.substr(begin, end - begin);
}

/// Images that crashed. They stay loaded, so that opening one again would give its silenced code.
std::vector<void*>& silencedImages() {
    static std::vector<void*> images;
    return images;
}

bool isSilenced(void* image) {
    const auto& images = silencedImages();
    return std::find(images.begin(), images.end(), image) != images.end();
}

model::Status checkBundle(const fs::path& bundle, const fs::path& image) {
    std::error_code ignored;
    if (!fs::exists(bundle, ignored)) return cannot(text::message("there is no such folder"));
    if (!fs::is_directory(bundle / "Contents", ignored))
        return cannot(text::message("it is no bundle: it has no folder Contents"));
    if (!fs::is_regular_file(image, ignored)) {
        return cannot(text::message("it has no image {}", image.lexically_relative(bundle).string()));
    }
    return {};
}

}  // namespace

fs::path imageOf(const fs::path& bundle) {
    std::ostringstream propertyList;
    propertyList << std::ifstream(bundle / "Contents" / "Info.plist", std::ios::binary).rdbuf();
    const std::string executable = textOfKey(propertyList.str(), "CFBundleExecutable");
    // A path that ends in a separator has no last component.
    const fs::path folder = bundle.has_filename() ? bundle : bundle.parent_path();
    return folder / "Contents" / "Linux" / (executable.empty() ? folder.stem() : fs::path(executable));
}

model::Result<std::unique_ptr<AddOnImage>> AddOnImage::load(const fs::path& bundle) {
    const fs::path image = imageOf(bundle);
    if (const model::Status whole = checkBundle(bundle, image); !whole) return whole.error();
    // All symbols now: one that is missing is a fault of loading, not a crash in the middle of a command. And local:
    // what one add-on exports must not answer another one's symbols.
    void* const handle = dlopen(fs::absolute(image).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) return cannot(text::message("its image cannot be loaded: {}", dlerror()));
    if (isSilenced(handle)) return cannot(text::message("it crashed before; start the program again to use it"));
    std::unique_ptr<AddOnImage> loaded(new AddOnImage(handle));
    for (const char* name : {GetExportedName, SetImportedName}) {
        if (dlsym(handle, name) == nullptr) return cannot(text::message("its image has no entry point {}", name));
    }
    return loaded;
}

AddOnImage::AddOnImage(void* image)
    : handle_(image),
      codeRange_(codeRangeOf(image)),
      exportedProc_(reinterpret_cast<GetExportedFuncAddrsProc*>(dlsym(image, GetExportedName))),
      importedProc_(reinterpret_cast<SetImportedFuncAddrsProc*>(dlsym(image, SetImportedName))) {}

void AddOnImage::silence() {
    if (handle_ == nullptr) return;
    silencedImages().push_back(handle_);
    silenceCode(std::exchange(handle_, nullptr));
}

AddOnImage::~AddOnImage() {
    if (handle_ != nullptr) dlclose(handle_);
}

}  // namespace host
