#pragma once

#include "comparing/Comparison.hpp"
#include "report/Report.hpp"

namespace report {

/// The subjects and sums of a report on what is different between two models, arranged, with its plans.
void addChanges(const comparing::Comparison& comparison, const model::Model& a, const model::Model& b, Report& report);

}  // namespace report
