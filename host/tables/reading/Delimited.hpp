#pragma once
// Text with delimiters: fields in quotes as by RFC 4180, any line ends, the last one there or not.

#include "tables/Result.hpp"
#include "tables/Table.hpp"

#include <optional>
#include <string_view>

namespace tables {

inline constexpr std::string_view Delimiters = "\t;,|";

/// Which of Delimiters cuts most lines of the beginning into fields of which one is a GUID or says so, and, where that
/// does not decide, cuts most lines into as many fields as the first. A first line "sep=;" decides.
/// @return nothing where none of them cuts anything.
std::optional<char> findDelimiter(std::string_view text);

/// A quote counts where a field begins with it; "" within stands for one. What follows a closing quote belongs to the
/// field. An error, for a quote that is never closed, names line and column.
Result<Table> readDelimited(std::string_view text, char delimiter);

}  // namespace tables
