#pragma once
// A command on several models: each as if alone, then one result for all.

#include "console/commands/DiffCommand.hpp"
#include "console/commands/ExportCommand.hpp"
#include "console/commands/ImportCommand.hpp"
#include "console/commands/ItemsCommand.hpp"
#include "console/commands/ListCommand.hpp"

#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace console {

struct SeveralOptions {
    CommonOptions common;
    /// Without a model; of a diff, `b` is the folder of the models that those below are compared with.
    std::variant<ImportOptions, ListOptions, ItemsOptions, ExportOptions, DiffOptions> one;
    std::vector<std::filesystem::path> models;
    unsigned jobs = 1;                            ///< 0: as many as the machine has cores.
    std::optional<std::filesystem::path> outDir;  ///< Where each model's file goes, under the model's name.
    std::string ending = ".txt";                  ///< Of an exported model's file there.
};

/// The worst of the models' statuses: a failure counts more than a row in error.
ExitStatus runSeveral(const SeveralOptions& options);

/// Makes the folder where there is none. Throws Failure.
void makeFolder(const std::filesystem::path& folder);

/// DIR/house.ifc for the model b/house.ifc; with another ending where one is given.
std::filesystem::path placeIn(const std::filesystem::path& folder, const std::filesystem::path& model,
                              const std::string& ending = {});

}  // namespace console
