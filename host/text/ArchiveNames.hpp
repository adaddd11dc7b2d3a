#pragma once

#include <string_view>

namespace text {

/// Whether the names of an archive's entries were chosen to make libzip slow. It enters all of them into a hash table
/// whose function is known (times 33 plus the next byte), so that an archive of some megabytes can keep it busy for
/// minutes. Names that somebody gave to files are spread well whatever they are.
bool hasCrowdedNames(std::string_view archive);

}  // namespace text
