#pragma once
// The plans of a report, from the model that it is about.

#include "report/Report.hpp"

namespace report {

/// The storeys that subjects stand on, with all that stands on them. A subject is found by its GUID; the report must be
/// arranged.
/// @param before  The model as it was, for subjects that are gone; may be null.
std::vector<Plan> plansOf(const Report& report, const model::Model& model, const model::Model* before);

}  // namespace report
