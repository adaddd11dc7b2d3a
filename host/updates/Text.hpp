#pragma once
// Small things about texts that both programs say.

#include <cstdint>
#include <string>
#include <string_view>

namespace updates {

/// Whether the bytes are UTF-8 throughout.
bool isWellFormed(std::string_view bytes);

/// "1 line", "2 lines"
std::string counted(std::uint64_t count, std::string_view noun);

}  // namespace updates
