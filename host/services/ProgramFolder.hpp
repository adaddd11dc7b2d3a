#pragma once

#include <filesystem>
#include <optional>

namespace host {

/// The folder of the running program, symbolic links resolved. Nothing where the system does not tell.
/// @param linkToProgram  what leads to the program; another one in tests.
std::optional<std::filesystem::path> programFolder(const std::filesystem::path& linkToProgram = "/proc/self/exe");

}  // namespace host
