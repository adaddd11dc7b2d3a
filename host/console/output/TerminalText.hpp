#pragma once
// Texts of a model or an update file may hold TABs, line ends and the control sequences of a terminal. What is printed
// for a person or in a line-based format never contains them as they are. And how many columns a text takes there.

#include <string>
#include <string_view>
#include <vector>

namespace console {

/// For tables and messages: control characters as their pictures (U+2400 and following), C1 controls and characters
/// that turn the writing direction as U+FFFD. One character for one character, so a column keeps its width.
std::string visible(std::string_view utf8);

/// For tab-separated output: "\t", "\n", "\r", "\\", and "\u00XX" for the other control characters. Undone by reading
/// the escapes back.
std::string escaped(std::string_view utf8);
/// One record: the cells, escaped, with a TAB between them and a line end.
std::string tsvLine(const std::vector<std::string>& cells);

/// Columns of a terminal: two for a wide East Asian character, none for a combining mark.
int displayWidth(std::string_view utf8);
/// The text, or its beginning and an ellipsis where it is wider than `width` columns. A combining mark stays with its
/// base.
std::string cutToWidth(std::string_view utf8, int width);

}  // namespace console
