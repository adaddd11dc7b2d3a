#pragma once

#include <string>
#include <string_view>

namespace updatefile {

/// How an update file names a property, UTF-8: "FireRating[WallCommon]". The add-on puts "Pset_" before what stands in
/// the brackets, so a property of a set of another name is named without its set: which of several the add-on takes
/// then, it decides itself.
std::string designationOf(std::u16string_view set, std::u16string_view name);

}  // namespace updatefile
