#pragma once
// Reads resource definition files; docs/resources.md describes their form.

#include "ResourceModule.hpp"

#include <filesystem>

namespace frameworks {

/// Reads every `.res` file of a folder in name order. Every fault is reported to the debug output with file and line.
/// @return false where there was one. What was understood is in `module` all the same.
bool readDefinitions(const std::filesystem::path& folder, ResourceModule& module);

/// Lays a translation's texts over those of the same numbers. A text that the translation lacks or has
/// empty stays the original's.
/// @return false where the translation has something that the original has not; reported as above.
bool applyTranslation(const ResourceModule& translation, ResourceModule& module);

}  // namespace frameworks
