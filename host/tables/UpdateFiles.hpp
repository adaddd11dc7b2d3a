#pragma once
// The updates as the files that the add-on reads.

#include "tables/Asking.hpp"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace tables {

/// The add-on's buffer for a line, without the line end; what is longer it cuts into several.
inline constexpr std::size_t LongestLine = 2047;
/// The review list numbers its rows with 16 bits and refuses any more.
inline constexpr std::size_t MostRowsOfAList = 32767;

/// Why no line can hold the update: it is too long, or has a character that ends a field, a line or its text. Nothing
/// where one can. The old value does not count: it is left empty where it does not fit beside the rest.
std::optional<std::string> obstacleOf(const AskedUpdate& update);

struct UpdateFile {
    std::string text;       ///< GUID, item, old, new; TAB between, LF behind each line.
    std::size_t first = 0;  ///< Which update the first line is.
    std::size_t count = 0;  ///< Of lines. Line i is the update first + i.
};

/// @param updates  without obstacle, as those of findUpdates.
std::vector<UpdateFile> writeUpdateFiles(std::span<const AskedUpdate> updates, std::size_t mostRows = MostRowsOfAList);

}  // namespace tables
