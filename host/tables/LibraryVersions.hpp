#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tables {

/// Name and version of each library that reads or writes files here, as it is loaded.
std::vector<std::pair<std::string, std::string>> libraryVersions();

}  // namespace tables
