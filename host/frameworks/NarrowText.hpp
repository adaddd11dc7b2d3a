#pragma once
// The one rule between narrow text and UTF-16, in both directions.

#include <unicode/unistr.h>

#include <cstddef>
#include <string_view>

namespace frameworks {

/// Reads UTF-8; a byte that is no part of a well-formed sequence is read as Windows-1252.
/// @param units  with room for as many as there are bytes. @return how many code units it wrote.
std::size_t decodeNarrow(std::string_view bytes, char16_t* units);
icu::UnicodeString decodeNarrow(std::string_view bytes);

/// Writes UTF-8 with a terminator; an unpaired surrogate becomes U+FFFD.
/// @return the bytes needed without the terminator; `target` holds the text only where that is below `capacity`.
std::size_t encodeNarrow(std::u16string_view units, char* target, std::size_t capacity);

/// @return the length of the well-formed sequence at the beginning; 0 where there is none.
std::size_t sequenceLength(std::string_view bytes);

}  // namespace frameworks
