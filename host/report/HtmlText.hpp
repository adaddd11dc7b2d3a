#pragma once

#include <string>
#include <string_view>

namespace report {

/// Appends the text as it is read on a page, in an attribute too: markup escaped, control characters as pictures,
/// characters that turn the writing direction or are no Unicode as U+FFFD. Line ends stay.
void appendText(std::string_view utf8, std::string& html);

}  // namespace report
