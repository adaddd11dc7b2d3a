#pragma once
// The forms of a report that is handed on, by the ending of its file's name; and what every report says of its origin.

#include "report/Report.hpp"
#include "text/Message.hpp"

#include <filesystem>
#include <string>
#include <string_view>

namespace report {

/// Whether a report can be written under this name: it ends in .html, .htm, .json or .xlsx, in either case.
bool hasForm(const std::filesystem::path& file);

/// The report in the form that the name asks for; that name must have one.
model::Result<std::string> inFormOf(const std::filesystem::path& file, const Report& report);

/// When and by what it was made.
/// @param program  with its version.
void addOrigin(Report& report, std::string_view program);

/// "house.ifc, IFC4, 62 elements"
Fact modelFact(text::Phrase label, const std::filesystem::path& path, const model::Model& model);

}  // namespace report
