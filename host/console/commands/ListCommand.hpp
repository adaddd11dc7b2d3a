#pragma once
// modelhost list: prints the model's elements.

#include "console/Failure.hpp"
#include "console/Options.hpp"
#include "console/output/Json.hpp"

#include <filesystem>
#include <string>
#include <vector>

namespace console {

struct ListOptions {
    CommonOptions common;
    std::filesystem::path model;
    std::string type;      ///< Display name, "Wall"; empty: any.
    std::string ifcClass;  ///< "IfcWall"; empty: any.
    std::string where;     ///< A selection; empty: any.
};

/// The columns of its table, and the rows of its JSON document.
std::vector<std::string> listHeader();
std::vector<std::vector<std::string>> listRows(const JsonValue& document);

ExitStatus runList(const ListOptions& options);

}  // namespace console
