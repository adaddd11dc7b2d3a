#pragma once
// The manual pages: modelhost(1), modelhost-import(1) and so on.

#include "console/help/Description.hpp"

#include <string>

namespace console {

/// In the language of man(7). @param command  one of `program`.
std::string manPage(const CommandDescription& command, const ProgramDescription& program);

}  // namespace console
