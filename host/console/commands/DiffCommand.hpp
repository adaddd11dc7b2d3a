#pragma once
// modelhost diff: what is different between two models.

#include "console/Failure.hpp"
#include "console/Options.hpp"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace console {

enum class DiffFormat : std::uint8_t { Table, Tsv, Json, Html, Updates };

struct DiffOptions {
    CommonOptions common;
    std::filesystem::path a, b;
    DiffFormat format = DiffFormat::Table;
    std::optional<std::filesystem::path> output;  ///< Of Html and Updates; nothing: standard output.
    std::string type;                             ///< Display name, "Wall"; empty: any.
    std::string ifcClass;                         ///< "IfcWall"; empty: any.
    std::string where;                            ///< A selection; empty: any.
    bool exitCode = false;                        ///< End with status 2 where there are differences.
};

ExitStatus runDiff(const DiffOptions& options);

}  // namespace console
