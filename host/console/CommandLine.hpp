#pragma once
// The command line's words, read into the options of one command.

#include "console/commands/DiffCommand.hpp"
#include "console/commands/ExportCommand.hpp"
#include "console/commands/ImportCommand.hpp"
#include "console/commands/ItemsCommand.hpp"
#include "console/commands/ListCommand.hpp"
#include "console/commands/LookupCommand.hpp"
#include "console/commands/ScriptCommand.hpp"
#include "console/several/SeveralCommand.hpp"

#include <optional>
#include <string>
#include <variant>

namespace console {

using Command = std::variant<ImportOptions, LookupOptions, ListOptions, ItemsOptions, ExportOptions, DiffOptions,
                             ScriptOptions, SeveralOptions>;

/// Throws Failure for wrong usage. Nothing where help or the version was asked for and printed.
std::optional<Command> parseCommandLine(int argc, const char* const* argv);

}  // namespace console
