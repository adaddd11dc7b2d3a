#pragma once
// How a table was understood, in one line and as plain numbers.

#include "tables/Asking.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tables {

/// In the forms and under the names that the programs print as JSON; what a format does not have is empty.
struct ReadReport {
    std::string format;     ///< "csv"
    std::string delimiter;  ///< ";"
    std::string encoding;   ///< "windows-1252"
    std::string sheet;
    std::string layout;  ///< "grid"
    std::uint64_t elements = 0;
    std::uint64_t items = 0;
    std::uint64_t updates = 0;
    std::uint64_t unchanged = 0;
    std::vector<LeftOut> leftOut;
};

ReadReport summarize(const ReadTable& read, const Asked& asked);

/// "Read doors.csv: comma, Windows-1252, grid, 57 elements, 3 items: 12 updates, 159 unchanged, 0 left out". For a
/// workbook the sheet stands in place of delimiter and encoding: "Read doors.xlsx: sheet Doors, grid, ...".
std::string reportLine(const std::string& fileName, const ReadTable& read, const Asked& asked);

}  // namespace tables
