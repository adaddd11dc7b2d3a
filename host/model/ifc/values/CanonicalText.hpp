#pragma once
// The arguments of an instance in one form for all ways of writing them: what means the same becomes the same text.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace model::ifc {

/// Adds to `out` what stands for a reference; the token is "#12".
using ReferenceWriter = std::function<void(std::string_view token, std::string& out)>;

/// Appends the arguments whose bit is set in `arguments` (see forEachReference): blanks and comments left out, numbers
/// by their value, strings decoded, words in capitals. Not meant to be read back, only to be compared.
/// @param instanceText  from '#' to ';'.
void appendCanonical(std::string_view instanceText, std::uint64_t arguments, const ReferenceWriter& reference,
                     std::string& out);

}  // namespace model::ifc
