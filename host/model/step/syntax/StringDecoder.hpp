#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace model::step {

/// How a string was read.
enum class Decoding : std::uint8_t {
    Exact,        ///< By the standard alone.
    Guessed,      ///< Raw bytes above 126 or a lone backslash: shown by a fixed rule, kept as they are unless set anew.
    Undecodable,  ///< A directive that is cut short or holds no characters. Refuse to edit it blindly.
};

/// Decodes a String value (quotes included) by ISO 10303-21: doubled apostrophes and backslashes,
/// \X2\ \X4\ \X\ \S\ \P?\. Raw bytes above 126 are read as UTF-8 where well formed, as Windows-1252 otherwise. On
/// Undecodable `out` holds the raw text between the quotes. What is in `out` before is overwritten, its memory reused.
Decoding decodeString(std::string_view quoted, std::u16string& out);

}  // namespace model::step
