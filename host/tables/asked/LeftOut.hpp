#pragma once
// What a table asked for and did not get through, each with the reason: nothing is lost without being told.

#include <cstdint>
#include <string>

namespace tables {

struct LeftOut {
    std::uint32_t line = 0;  ///< Of the file, or row of the sheet, from 1.
    std::string column;      ///< As its header calls it; "column C" or "column 3" where it has none.
    std::string why;         ///< A complete clause that says what to do where something can be done.
};

}  // namespace tables
