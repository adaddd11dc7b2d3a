#pragma once
// UTF-8 and UTF-16, and the halves of surrogate pairs, which are no characters.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace text {

using Character = std::int32_t;  ///< A Unicode scalar value, or NoCharacter.

constexpr Character NoCharacter = -1;
constexpr Character ReplacementCharacter = 0xFFFD;

/// Reads the character at `at`, which lies within the text, and moves `at` behind it. An ill-formed byte is passed
/// over, with those that a well-formed character could begin with: @return NoCharacter.
Character nextCharacter(std::string_view utf8, std::size_t& at);
/// The same of UTF-16; half a surrogate pair is passed over and gives NoCharacter.
Character nextCharacter(std::u16string_view utf16, std::size_t& at);

/// The character must not be NoCharacter.
void appendCharacter(std::string& utf8, Character character);
void appendCharacter(std::u16string& utf16, Character character);

/// Always well-formed: half a surrogate pair becomes U+FFFD. Zero units are kept.
std::string toUtf8(std::u16string_view utf16);
/// Ill-formed bytes become U+FFFD.
std::u16string fromUtf8(std::string_view utf8);

/// Whether the bytes are UTF-8 throughout.
bool isWellFormed(std::string_view utf8);
/// Whether every surrogate has its other half, so that the text can be written as UTF-8 and read back.
bool isWellFormed(std::u16string_view utf16);

/// The text with what is ill-formed in it as U+FFFD: file names and messages may hold any bytes.
std::string wellFormed(std::string_view bytes);

/// How many characters the text has, a surrogate pair being one.
std::size_t characterCount(std::u16string_view utf16);
/// The same of well-formed UTF-8.
std::size_t characterCount(std::string_view utf8);

}  // namespace text
