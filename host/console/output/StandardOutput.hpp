#pragma once
// The program's result on standard output.

#include <string_view>

namespace console {

/// Writes all of it. Throws Failure where standard output cannot take it (a full disk), so that no caller mistakes a
/// cut result for a whole one.
void print(std::string_view text);

/// What print has kept back is written; to be called once, at the end.
void flushStandardOutput();

}  // namespace console
