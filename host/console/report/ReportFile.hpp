#pragma once
// The reports to hand on of what a command did, and --report FILE: a page, JSON or a workbook, by its ending.

#include "console/commands/DiffOutput.hpp"
#include "console/import/ImportReport.hpp"
#include "report/Report.hpp"

#include <filesystem>
#include <optional>
#include <vector>

namespace console {

/// Of two models compared.
report::Report pageOf(const Difference& difference);
/// Of an import. @param model  As it is after the import; of a dry run, as it was.
report::Report pageOf(const ImportReport& import, const model::Model& model);

/// Checked before the work, so that no work is lost: the ending, the folder, and that it is none of the files that the
/// command reads or writes. Throws Failure.
void checkReportFile(const std::optional<std::filesystem::path>& file,
                     const std::vector<std::filesystem::path>& others);

/// Writes it all or nothing of it, and says so. Throws Failure.
void writeReportFile(const report::Report& report, const std::filesystem::path& file);

/// When and by which version: facts of every report.
void addOrigin(report::Report& report);

}  // namespace console
