#pragma once
// modelhost items: lists which attributes, properties and classifications the elements have.

#include "console/Failure.hpp"
#include "console/Options.hpp"

#include <filesystem>
#include <string>

namespace console {

struct ItemsOptions {
    CommonOptions common;
    std::filesystem::path model;
    std::string type;      ///< Display name, "Wall"; empty: any.
    std::string ifcClass;  ///< "IfcWall"; empty: any.
    std::string where;     ///< A selection; empty: any.
    bool standard = false;
};

ExitStatus runItems(const ItemsOptions& options);

}  // namespace console
