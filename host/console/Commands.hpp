#pragma once
// The commands of modelhost. Each opens the model, does its work, prints, and throws Failure where it cannot go on.

#include "console/Failure.hpp"
#include "console/Options.hpp"

namespace console {

ExitStatus runImport(const ImportOptions& options);
ExitStatus runLookup(const LookupOptions& options);
ExitStatus runList(const ListOptions& options);
ExitStatus runExport(const ExportOptions& options);
ExitStatus runScript(const ScriptOptions& options);

}  // namespace console
