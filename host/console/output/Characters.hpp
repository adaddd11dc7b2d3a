#pragma once
// UTF-8 character by character.

#include <cstdint>
#include <string>
#include <string_view>

namespace console {

/// Reads the character at `at` and moves `at` behind it. @return -1 for an ill-formed byte.
std::int32_t nextCharacter(std::string_view utf8, std::size_t& at);

void appendCharacter(std::string& utf8, std::int32_t character);

}  // namespace console
