#pragma once

#include "model/step/editing/Changes.hpp"
#include "model/step/index/Index.hpp"

#include <string_view>
#include <vector>

namespace model::step {

/// The bytes of the file as it is now, as a sequence of views: stretches of the file as opened, and changed instances
/// between them. Valid until the next change. Costs time by the number of changes, not by the file's size.
std::vector<std::string_view> fileContent(const Index& index, Changes& changes);

}  // namespace model::step
