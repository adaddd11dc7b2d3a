#pragma once

#include <cstdint>
#include <string>

namespace model::step {

/// Something wrong in the file that does not keep it from being opened.
struct Remark {
    std::uint64_t line = 0;    ///< From 1; 0 where it concerns the whole file.
    std::uint64_t offset = 0;  ///< Bytes from the beginning.
    std::string message;       ///< For a person: what, and what becomes of it. No line number, no period.
};

}  // namespace model::step
