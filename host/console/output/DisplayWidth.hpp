#pragma once
// How many columns of a terminal a text takes: two for wide East Asian characters, none for combining marks.

#include <string>
#include <string_view>

namespace console {

int displayWidth(std::string_view utf8);

/// The text, or its beginning and an ellipsis where it is wider than `width` columns. A combining mark stays with its
/// base.
std::string cutToWidth(std::string_view utf8, int width);

}  // namespace console
