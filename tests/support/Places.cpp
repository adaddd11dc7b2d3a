#include "support/Places.hpp"

#include <algorithm>
#include <cstdlib>
#include <system_error>

namespace testing_support {

namespace fs = std::filesystem;

fs::path projectFile(const fs::path& name) {
    return fs::path(PROJECT_DIR) / name;
}

fs::path builtFile(const fs::path& name) {
    return fs::path(BINARY_DIR) / name;
}

fs::path galleryAddOn(const fs::path& bundle) {
    return fs::path(GALLERY_DIR) / bundle;
}

std::vector<std::string> realModels() {
    const char* named = std::getenv("REAL_MODELS");
    std::vector<std::string> models;
    std::error_code absent;
    for (const auto& entry : fs::directory_iterator(named != nullptr ? named : PROJECT_DIR "/../shared/models", absent))
        if (entry.path().extension() == ".ifc") models.push_back(entry.path().string());
    std::sort(models.begin(), models.end());
    return models;
}

}  // namespace testing_support
