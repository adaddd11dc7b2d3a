#pragma once

#include <string>
#include <string_view>

namespace model::step {

/// What a file that is not in clear-text encoding seems to be by its first bytes, and what to do about it. For a
/// person; without the file's name.
std::string describeForeignFile(std::string_view bytes);

}  // namespace model::step
