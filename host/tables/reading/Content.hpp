#pragma once
// What a file is by its bytes, whatever its name says.

#include "tables/Result.hpp"

#include <cstdint>
#include <string_view>

namespace tables {

enum class Content : std::uint8_t { Text, Xlsx, Ods };

/// Fails for what holds no table that could be read, saying what it is and what to do.
Result<Content> detectContent(std::string_view bytes);

}  // namespace tables
