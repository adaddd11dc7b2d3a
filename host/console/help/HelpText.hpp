#pragma once
// The help of a command as a terminal shows it.

#include "console/help/Description.hpp"

#include <string>

namespace console {

/// @param command  one of `program`; the first lists the others.
std::string helpText(const CommandDescription& command, const ProgramDescription& program);

/// "-o,--output FILE", "--backup[=SUFFIX]"
std::string shown(const OptionDescription& option);

}  // namespace console
