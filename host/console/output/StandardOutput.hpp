#pragma once
// The program's result on standard output, and what is known of the device behind it.

#include <string_view>

namespace console {

/// The device behind standard output or standard error.
struct Terminal {
    bool present = false;  ///< It is a terminal: a person reads it.
    bool colour = false;   ///< A terminal, NO_COLOR is not set, and TERM is not "dumb".
    int width = 0;         ///< Columns; 0: no limit, print everything.

    static Terminal standardOutput();
    static Terminal standardError();
};

/// Writes all of it. Throws Failure where standard output cannot take it (a full disk), so that no caller mistakes a
/// cut result for a whole one.
void print(std::string_view text);

/// Writes what print has buffered. Called once, at the end.
void flushStandardOutput();

}  // namespace console
