#pragma once
// Texts of a model or an update file may hold TABs, line ends, the control sequences of a terminal, and characters that
// are not seen or turn the writing direction. What is printed for a person or in a line-based format does not contain
// them as they are. And how many columns of a terminal a text takes.

#include "console/output/StandardOutput.hpp"
#include "importing/ListRows.hpp"

#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace console {

/// For tables and messages: control characters as their pictures (U+2400 and following); C1 controls, characters that
/// turn the writing direction and those without a width as U+FFFD. One character for one character. The two joiners
/// U+200C and U+200D stay: names in Persian or Hindi are written with them.
std::string visible(std::string_view utf8);
void appendVisible(std::string& text, std::string_view utf8);
/// The same for several lines: TABs and line ends stay.
std::string visibleLines(std::string_view utf8);

/// For tab-separated output: "\t", "\n", "\r", "\\", and "\uXXXX" for the other control characters; on a terminal also
/// for every character that is not seen. Undone by reading the escapes back.
std::string escaped(std::string_view utf8, const Terminal& terminal);
/// One record: the cells, escaped, with a TAB between them and a line end.
std::string tsvLine(const std::vector<std::string>& cells, const Terminal& terminal);
std::string tsvLine(const std::vector<importing::SharedText>& cells, const Terminal& terminal);

/// The text as a JSON string in its quotes. Control characters and those that are not seen are escaped.
void appendJsonString(std::string& json, std::string_view utf8);

/// How many columns of a terminal the text takes as visible() shows it: two for a wide East Asian character, none for a
/// combining mark. Counts no further than `most`.
int displayWidth(std::string_view utf8, int most = std::numeric_limits<int>::max());
/// The text as visible() shows it, or its beginning and an ellipsis where it is wider than `width` columns. A combining
/// mark stays with its base.
std::string cutToWidth(std::string_view utf8, int width);

}  // namespace console
