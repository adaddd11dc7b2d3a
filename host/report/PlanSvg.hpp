#pragma once

#include "report/Report.hpp"

namespace report {

/// Appends the plan as a figure: what the report is about is marked, and a link to its rows.
void appendPlan(const Plan& plan, const Report& report, std::string& html);

}  // namespace report
