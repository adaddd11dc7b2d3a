#pragma once
// modelhost export: writes current values as update-file lines or as a table.

#include "console/Failure.hpp"
#include "console/Options.hpp"
#include "console/export/Exporter.hpp"
#include "tables/Writing.hpp"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace console {

enum class ExportLayout : std::uint8_t {
    Long,  ///< A line for each value: GUID, item, old value, new value.
    Grid,  ///< A line for each element, a column for each item.
};

struct ExportOptions {
    CommonOptions common;
    std::filesystem::path model;
    std::vector<std::string> items;  ///< Designations as an update line's second field has them.
    std::string type;
    std::string ifcClass;
    std::string where;
    std::optional<std::filesystem::path> output;  ///< Nothing: standard output.
    std::optional<ExportLayout> layout;           ///< Nothing: as the ending of `output` has it.
    std::optional<Missing> missing;               ///< Nothing: as the layout has it.
};

/// Where an item was met.
enum class ItemFound : std::uint8_t {
    Here,       ///< On an element that was chosen.
    Elsewhere,  ///< On others only.
    Nowhere,
};
struct ItemVerdict {
    std::string item;
    ItemFound found = ItemFound::Here;
    std::string nearest;  ///< Of the names that there are; empty where none is near.
};
/// Says which items none of the elements has. @return Failed where a mistake is all that there was.
ExitStatus judge(const std::vector<ItemVerdict>& verdicts, Missing missing);

Missing missingOf(const ExportOptions& options);
bool isGrid(const ExportOptions& options);
/// What can be told before a model is opened. Throws Failure.
void checkExport(const ExportOptions& options);
/// Writes a table put together from several models to where the options say. A table that is no grid has the columns of
/// a long list.
void writeExport(tables::Grid table, const ExportOptions& options);

ExitStatus runExport(const ExportOptions& options);

}  // namespace console
