#pragma once
// The words of the command line that say how a table is to be read.

#include "importing/UpdateSource.hpp"

#include <filesystem>
#include <memory>
#include <string>

namespace console {

/// Nothing of it but `as` concerns an update file.
struct TableOptions {
    std::string as;         ///< txt, csv, tsv, xlsx or ods in place of the ending.
    std::string delimiter;  ///< One character, or "tab".
    std::string encoding;
    std::string sheet;
    bool clearEmpty = false;
    bool any() const { return !delimiter.empty() || !encoding.empty() || !sheet.empty() || clearEmpty; }
};

/// Opens what the updates come from. @param path  "-" is standard input. Throws Failure.
std::unique_ptr<importing::UpdateSource> openUpdates(const std::filesystem::path& path, const TableOptions& options);

}  // namespace console
