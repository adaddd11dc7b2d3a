#pragma once
// What is known of the device behind standard output or standard error.

namespace console {

struct Terminal {
    bool present = false;  ///< A person is looking.
    bool colour = false;   ///< A terminal, NO_COLOR is not set, and TERM is not "dumb".
    int width = 0;         ///< Columns; 0: no limit, print everything.

    static Terminal standardOutput();
    static Terminal standardError();
};

}  // namespace console
