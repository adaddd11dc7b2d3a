#pragma once
// modelhost items: lists which attributes, properties and classifications the elements have.

#include "console/Failure.hpp"
#include "console/Options.hpp"
#include "console/output/Json.hpp"
#include "console/output/Table.hpp"

#include <filesystem>
#include <string>
#include <vector>

namespace console {

struct ItemsOptions {
    CommonOptions common;
    std::filesystem::path model;
    std::string type;      ///< Display name, "Wall"; empty: any.
    std::string ifcClass;  ///< "IfcWall"; empty: any.
    std::string where;     ///< A selection; empty: any.
    bool standard = false;
};

/// The columns of its table, the rows of its JSON document, and how the table is fitted.
std::vector<std::string> itemsHeader();
std::vector<std::vector<std::string>> itemsRows(const JsonValue& document);
/// @param first  the column in which the items' own begin.
void arrangeItems(Table& table, std::size_t first);

ExitStatus runItems(const ItemsOptions& options);

}  // namespace console
