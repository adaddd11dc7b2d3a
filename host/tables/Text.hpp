#pragma once
// Small things about the texts of cells.

#include <string>
#include <string_view>

namespace tables {

/// Without blanks at both ends, those that do not break a line included.
std::string_view trimmed(std::string_view text);

/// The text with each TAB, CR and LF as a blank, as cells are read.
std::string withoutBreaks(std::string text);

/// For messages: in quotes, cut behind 40 bytes or so, never within a character.
std::string inQuotes(std::string_view text);

}  // namespace tables
