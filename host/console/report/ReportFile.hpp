#pragma once
// --report FILE: a page, JSON or a workbook, by its ending, of what a command did.

#include "report/Forms.hpp"

#include <filesystem>
#include <optional>
#include <vector>

namespace console {

/// Checked before the work, so that no work is lost: the ending, the folder, and that it is none of the files that the
/// command reads or writes. Throws Failure.
void checkReportFile(const std::optional<std::filesystem::path>& file,
                     const std::vector<std::filesystem::path>& others);

/// Writes it all or nothing of it, and says so. Throws Failure.
void writeReportFile(const report::Report& report, const std::filesystem::path& file);

/// When and by which version: facts of every report.
void addOrigin(report::Report& report);

using report::modelFact;

}  // namespace console
