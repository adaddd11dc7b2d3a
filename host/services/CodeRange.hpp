#pragma once
// An image's machine code in memory: where it lies, and how to put an end to it.

#include <cstdint>

namespace host {

struct CodeRange {
    std::uintptr_t begin = 0, end = 0;
    bool contains(std::uintptr_t address) const { return address >= begin && address < end; }
};

/// @param image  a handle of dlopen. @return an empty range where the system does not tell.
CodeRange codeRangeOf(void* image);

/// Overwrites the image's code with return instructions: whoever calls into it, its end hooks and destructors at the
/// program's exit included, comes back at once and nothing has happened. None of its code may be under way on this
/// thread; a thread of its own that is still in there ends the program.
/// @return false where the system does not allow it, and the code is as it was.
bool silenceCode(void* image);

}  // namespace host
