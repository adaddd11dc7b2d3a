#pragma once

#include <string>
#include <string_view>

namespace model::step {

/// A String value with its quotes: ASCII 32 to 126 plain, the rest as \X2\ or, above U+FFFF, \X4\. Apostrophes and
/// backslashes are doubled. Half a surrogate pair, which has no encoding, becomes U+FFFD.
std::string encodeString(std::u16string_view text);

}  // namespace model::step
