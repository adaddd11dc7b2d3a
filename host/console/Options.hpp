#pragma once
// What every command takes. Each command's own options stand in its header.

#include "console/output/StandardOutput.hpp"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace console {

enum class Format : std::uint8_t { Table, Tsv, Json };

struct Share;

/// How results and messages are shown.
struct OutputOptions {
    Colour colour = Colour::Auto;
    bool wide = false;   ///< Tables are not fitted to the terminal.
    bool quiet = false;  ///< No remarks, no progress; errors are said all the same.
    bool pager = true;   ///< Tables longer than the terminal go through one.
};

struct CommonOptions {
    Format format = Format::Table;
    OutputOptions output;
    std::filesystem::path addOn;  ///< Empty: the bundle beside the program.
    bool debug = false;
    bool force = false;  ///< Save over a file that another program changed since it was opened.
    std::optional<std::filesystem::path> report;  ///< A page, JSON or workbook to hand on; of import, script and diff.
    Share* share = nullptr;                       ///< Set where this model is one of several. Not owned.
    bool shareSets = false;                       ///< Property sets that are made with equal content become one.
    std::string backup;  ///< The suffix under which a file that is replaced is kept; empty: it is not.
};

}  // namespace console
