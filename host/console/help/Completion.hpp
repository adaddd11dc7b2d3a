#pragma once
// What completes the words of a command line in bash, zsh and fish.

#include "console/help/Description.hpp"

#include <string>

namespace console {

/// @param shell  "bash", "zsh" or "fish".
std::string completion(const std::string& shell, const ProgramDescription& program);

}  // namespace console
