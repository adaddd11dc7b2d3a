#pragma once
// modelhost export: writes current values as update-file lines or as a table.

#include "console/Failure.hpp"
#include "console/Options.hpp"
#include "console/export/Exporter.hpp"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace console {

enum class ExportLayout : std::uint8_t {
    Long,  ///< A line for each value: GUID, item, old value, new value.
    Grid,  ///< A line for each element, a column for each item.
};

struct ExportOptions {
    CommonOptions common;
    std::filesystem::path model;
    std::vector<std::string> items;  ///< Designations as an update line's second field has them.
    std::string type;
    std::string ifcClass;
    std::string where;
    std::optional<std::filesystem::path> output;  ///< Nothing: standard output.
    std::optional<ExportLayout> layout;           ///< Nothing: as the ending of `output` has it.
    std::optional<Missing> missing;               ///< Nothing: as the layout has it.
};

ExitStatus runExport(const ExportOptions& options);

}  // namespace console
