#pragma once
// The forms in which a table names an element.

#include <optional>
#include <string>
#include <string_view>

namespace tables {

/// @param written  36 characters in any case, in braces or not, or a GlobalId of 22; blanks around it do not count.
/// @return the 36 characters, in capitals as 'modelhost list' prints them.
std::optional<std::string> parseGuid(std::string_view written);

/// Whether a column's header says that it holds GUIDs: "GUID" or "GlobalId" in any case.
bool namesGuids(std::string_view header);

}  // namespace tables
