#pragma once
// The program's result on standard output, and what is known of the device behind it.

#include <cstdint>
#include <string_view>

namespace console {

enum class Colour : std::uint8_t { Auto, Always, Never };

/// What the user said of how results are shown. Set once, before anything is printed.
struct ResultStyle {
    Colour colour = Colour::Auto;
    bool wide = false;          ///< Without a limit of width.
    bool onErrorsSide = false;  ///< Results go to standard error: standard output is taken by the model itself.
};
void setResultStyle(const ResultStyle& style);

/// The device behind standard output or standard error.
struct Terminal {
    bool present = false;  ///< It is a terminal: a person reads it.
    bool colour = false;   ///< As chosen; else for a terminal, where NO_COLOR is not set and TERM is not "dumb".
    int width = 0;         ///< Columns; 0: no limit, print everything.
    int height = 0;        ///< Lines; 0: not known.

    /// Where results go.
    static Terminal standardOutput();
    static Terminal standardError();
};

/// Writes all of it. Throws Failure where standard output cannot take it (a full disk), so that no caller mistakes a
/// cut result for a whole one.
void print(std::string_view text);

/// The same to standard output whatever the style says: for what is the model itself.
void printModel(std::string_view bytes);

/// From here on, what is printed goes through a pager where a person reads it and it is longer than the terminal.
/// @param wide  lines may be wider than the terminal.
void startPaging(bool wide);

/// From here on, results are kept for another process, which prints them in colour or not.
void keepResults(bool colour);

/// Waits until the user has left the pager. Called before a message, which the pager would hide.
void endPaging() noexcept;

/// Writes what print has buffered, and waits for the pager's end. Called once, at the end.
void flushStandardOutput();

}  // namespace console
