#include "console/help/Versions.hpp"

#include "tables/LibraryVersions.hpp"

#include <fmt/format.h>
#include <unicode/uversion.h>
#include <CLI/Version.hpp>
#include <nlohmann/json.hpp>

#include <array>

namespace console {
namespace {

std::string icuVersion() {
    UVersionInfo version;
    u_getVersion(version);
    std::array<char, U_MAX_VERSION_STRING_LENGTH> text{};
    u_versionToString(version, text.data());
    return text.data();
}

}  // namespace

std::string versionText() {
    std::string text = "modelhost " PROJECT_VERSION "\nwith ICU " + icuVersion();
    for (const auto& [library, version] : tables::libraryVersions()) text += fmt::format(", {} {}", library, version);
    return text + fmt::format(", {{fmt}} {}.{}.{}, nlohmann-json {}.{}.{}, CLI11 {}\n", FMT_VERSION / 10000,
                              FMT_VERSION / 100 % 100, FMT_VERSION % 100, NLOHMANN_JSON_VERSION_MAJOR,
                              NLOHMANN_JSON_VERSION_MINOR, NLOHMANN_JSON_VERSION_PATCH, CLI11_VERSION);
}

}  // namespace console
