#pragma once

#include <string>

namespace console {

/// The program's version, and in a second line those of the libraries that it runs with.
std::string versionText();

}  // namespace console
