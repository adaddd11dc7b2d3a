#pragma once
// modelhost list: prints the model's elements.

#include "console/Failure.hpp"
#include "console/Options.hpp"

#include <filesystem>
#include <string>

namespace console {

struct ListOptions {
    CommonOptions common;
    std::filesystem::path model;
    std::string type;      ///< Display name, "Wall"; empty: any.
    std::string ifcClass;  ///< "IfcWall"; empty: any.
    std::string where;     ///< A selection; empty: any.
};

ExitStatus runList(const ListOptions& options);

}  // namespace console
