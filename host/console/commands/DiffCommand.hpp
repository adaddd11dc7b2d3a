#pragma once
// modelhost diff: what is different between two models.

#include "console/Failure.hpp"
#include "console/Options.hpp"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace console {

enum class DiffFormat : std::uint8_t { Table, Tsv, Json, Html, Updates };

struct DiffOptions {
    CommonOptions common;
    std::filesystem::path a, b;                                        ///< Files.
    std::map<std::filesystem::path, std::filesystem::path> namesakes;  ///< Of folders, to each model of A that of B.
    std::vector<std::filesystem::path> onlyA, onlyB;  ///< Of folders, the models without a namesake in the other one.
    DiffFormat format = DiffFormat::Table;
    std::optional<std::filesystem::path> output;  ///< Of Html and Updates; nothing: standard output.
    std::string type;                             ///< Display name, "Wall"; empty: any.
    std::string ifcClass;                         ///< "IfcWall"; empty: any.
    std::string where;                            ///< A selection; empty: any.
    bool exitCode = false;                        ///< End with status 2 where there are differences.
};

ExitStatus runDiff(const DiffOptions& options);

/// Before the work: that the place of `output` can be written, and is none of the models. Throws Failure.
void checkDiffTarget(const DiffOptions& options, const std::vector<std::filesystem::path>& models);

}  // namespace console
