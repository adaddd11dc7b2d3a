#pragma once
// What a file that should be text is, by its bytes.

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace updatefile {

inline constexpr std::size_t SniffLength = 65536;

enum class FileKind : std::uint8_t { Text, TextWithByteOrderMark, Utf16, Binary };

/// @param beginning  the file's first bytes, as many as there are, at most SniffLength.
FileKind detectFileKind(std::string_view beginning);

}  // namespace updatefile
