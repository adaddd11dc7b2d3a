#pragma once

#include <filesystem>

namespace host {

/// The folder of the running program, symbolic links resolved; the working folder where the system does not tell.
std::filesystem::path programFolder();

}  // namespace host
