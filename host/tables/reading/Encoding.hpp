#pragma once
// Text of any encoding as UTF-8.

#include "tables/Result.hpp"

#include <string>
#include <string_view>

namespace tables {

struct DecodedText {
    std::string text;      ///< UTF-8 throughout, without a mark.
    std::string encoding;  ///< Its usual name: "UTF-8", "UTF-16LE", "Windows-1252".
};

/// @param encoding  as ICU knows it, in any case. Empty: by the byte-order mark; else UTF-8 where all of it is; else
/// UTF-16 where every second byte is often zero and the rest is well-formed; else Windows-1252.
/// Fails for a name that nobody knows, and with the line where the bytes are not of that encoding.
Result<DecodedText> decode(std::string_view bytes, const std::string& encoding = {});

}  // namespace tables
