#pragma once
// What every command takes. Each command's own options stand in its header.

#include <cstdint>
#include <filesystem>

namespace console {

enum class Format : std::uint8_t { Table, Tsv, Json };

struct CommonOptions {
    Format format = Format::Table;
    std::filesystem::path addOn;  ///< Empty: the bundle beside the program.
    bool debug = false;
    bool force = false;  ///< Save over a file that another program changed since it was opened.
};

}  // namespace console
