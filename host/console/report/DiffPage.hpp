#pragma once

#include "console/commands/DiffOutput.hpp"
#include "report/Report.hpp"

namespace console {

/// The report to hand on of two models compared.
report::Report pageOf(const Difference& difference);

}  // namespace console
