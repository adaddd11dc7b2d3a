#pragma once
// modelhost export: writes current values as update-file lines.

#include "console/Failure.hpp"
#include "console/Options.hpp"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace console {

struct ExportOptions {
    CommonOptions common;
    std::filesystem::path model;
    std::vector<std::string> items;  ///< Designations as an update line's second field has them.
    std::string type;
    std::string ifcClass;
    std::optional<std::filesystem::path> output;
};

ExitStatus runExport(const ExportOptions& options);

}  // namespace console
