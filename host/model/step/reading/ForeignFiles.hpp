#pragma once

#include <string>
#include <string_view>

namespace model::step {

/// What a file that is not in clear-text encoding seems to be, and what to do about it.
std::string describeForeignFile(std::string_view bytes);

}  // namespace model::step
