#pragma once
// Small helpers on UTF-16 text.

#include <cstddef>
#include <string>
#include <string_view>

namespace model::ifc {

std::string toUtf8(std::u16string_view text);
std::u16string fromUtf8(std::string_view text);

/// Length as EXPRESS counts it: characters, a surrogate pair being one.
std::size_t characterCount(std::u16string_view text);

/// Whether it holds half a surrogate pair, which is no character and cannot be written.
bool hasLoneSurrogate(std::u16string_view text);

/// For messages: in quotes, cut short where it is long.
std::string inQuotes(std::u16string_view text);

}  // namespace model::ifc
