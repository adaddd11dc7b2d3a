#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace updatefile {

/// How an update file names a property, UTF-8: "FireRating[WallCommon]". The add-on puts "Pset_" before what stands in
/// the brackets, so a property of a set of another name is named without its set: which of several the add-on takes
/// then, it decides itself.
std::string designationOf(std::u16string_view set, std::u16string_view name);

/// How the add-on reads one, UTF-16.
struct Designation {
    std::u16string name;
    std::optional<std::u16string> set;  ///< The whole name of the set that stands in brackets.
};

/// The name ends at the first bracket. Behind it the last character is taken for the closing one, whatever it is.
Designation parseDesignation(std::u16string_view text);
/// The name alone, of UTF-8.
std::string_view nameIn(std::string_view designation);

}  // namespace updatefile
