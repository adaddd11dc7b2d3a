#pragma once
// Where an image's machine code lies in memory.

#include <cstdint>

namespace host {

struct CodeRange {
    std::uintptr_t begin = 0, end = 0;
    bool contains(std::uintptr_t address) const { return address >= begin && address < end; }
};

/// @param image  a handle of dlopen. @return an empty range where the system does not tell.
CodeRange codeRangeOf(void* image);

}  // namespace host
