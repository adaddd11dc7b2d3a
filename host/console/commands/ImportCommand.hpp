#pragma once
// modelhost import: reviews an update file against the model and applies the ticked rows.

#include "console/Failure.hpp"
#include "console/Options.hpp"
#include "console/import/TableOptions.hpp"
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
    TableOptions table;
    bool exact = false;   ///< Store what was asked where the add-on stored something else.
    bool strict = false;  ///< Whatever is not as asked is a failure.
};

ExitStatus runImport(const ImportOptions& options);

}  // namespace console
