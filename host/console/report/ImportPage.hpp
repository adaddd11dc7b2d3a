#pragma once
// The report to hand on of an import.

#include "console/import/ImportReport.hpp"
#include "report/Report.hpp"

namespace console {

/// @param model  As it is after the import; of a dry run, as it was.
report::Report pageOf(const ImportReport& import, const model::Model& model);

}  // namespace console
