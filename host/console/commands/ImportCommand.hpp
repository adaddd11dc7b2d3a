#pragma once
// modelhost import: reviews an update file against the model and applies the ticked rows.

#include "console/Failure.hpp"
#include "console/Options.hpp"
#include "console/import/TickChoice.hpp"

#include <filesystem>
#include <optional>

namespace console {

struct ImportOptions {
    CommonOptions common;
    std::filesystem::path model;
    std::filesystem::path updates;  ///< "-" is standard input.
    TickChoice tick;
    bool apply = false;
    std::optional<std::filesystem::path> output;
    bool inPlace = false;
};

ExitStatus runImport(const ImportOptions& options);

}  // namespace console
