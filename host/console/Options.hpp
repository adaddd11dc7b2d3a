#pragma once
// What the command line asks for, one record a command.

#include "console/import/TickChoice.hpp"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace console {

enum class Format : std::uint8_t { Table, Tsv, Json };

/// Taken by every command.
struct CommonOptions {
    Format format = Format::Table;
    std::filesystem::path addOn;  ///< Empty: the bundle beside the program.
    bool debug = false;
    bool force = false;  ///< Save over a file that another program changed since it was opened.
};

struct ImportOptions {
    CommonOptions common;
    std::filesystem::path model;
    std::filesystem::path updates;  ///< "-" is standard input.
    TickChoice tick;
    bool apply = false;
    std::optional<std::filesystem::path> output;
    bool inPlace = false;
};

struct LookupOptions {
    CommonOptions common;
    std::filesystem::path model;
    std::vector<std::string> guids;  ///< Of 36 or 22 characters; empty: the one that the dialog opens with.
};

struct ListOptions {
    CommonOptions common;
    std::filesystem::path model;
    std::string type;      ///< Display name, "Wall"; empty: any.
    std::string ifcClass;  ///< "IfcWall"; empty: any.
};

struct ExportOptions {
    CommonOptions common;
    std::filesystem::path model;
    std::vector<std::string> items;  ///< Designations as an update line's second field has them.
    std::string type;
    std::string ifcClass;
    std::optional<std::filesystem::path> output;
};

struct ScriptOptions {
    CommonOptions common;
    std::filesystem::path model;
    std::filesystem::path steps;  ///< "-" is standard input.
};

}  // namespace console
