#pragma once

#include <string>
#include <string_view>

namespace model::step {

/// A String value with its quotes: ASCII 32 to 126 plain, the rest as \X2\ or, above U+FFFF, \X4\.
std::string encodeString(std::u16string_view text);

}  // namespace model::step
