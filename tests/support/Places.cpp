#include "support/Places.hpp"

#include <algorithm>
#include <cctype>
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

namespace {

std::vector<std::string> modelsIn(const fs::path& folder) {
    std::vector<std::string> found;
    std::error_code absent;
    for (const auto& entry : fs::directory_iterator(folder, absent))
        if (entry.path().extension() == ".ifc") found.push_back(entry.path().string());
    std::sort(found.begin(), found.end());
    return found;
}

}  // namespace

std::vector<std::string> models() {
    std::vector<std::string> all = {projectFile("samples/house.ifc").string()};
    const char* named = std::getenv("REAL_MODELS");
    for (const char* folder : {MADE_MODELS, named != nullptr ? named : PROJECT_DIR "/../shared/models"}) {
        const std::vector<std::string> found = modelsIn(folder);
        all.insert(all.end(), found.begin(), found.end());
    }
    return all;
}

std::string nameOfModel(const ::testing::TestParamInfo<std::string>& model) {
    std::string name = fs::path(model.param).stem().string();
    std::erase_if(name, [](unsigned char c) { return std::isalnum(c) == 0; });
    return name;
}

}  // namespace testing_support
