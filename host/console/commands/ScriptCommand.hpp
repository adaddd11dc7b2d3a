#pragma once
// modelhost script: acts as the user, step by step.

#include "console/Failure.hpp"
#include "console/Options.hpp"

#include <filesystem>

namespace console {

struct ScriptOptions {
    CommonOptions common;
    std::filesystem::path model;
    std::filesystem::path steps;  ///< "-" is standard input.
};

ExitStatus runScript(const ScriptOptions& options);

}  // namespace console
