#pragma once
// How a person reads the review list: its columns, from 0, and its texts.

#include "console/output/ListRows.hpp"

namespace console::reviewlist {

inline constexpr std::size_t TickColumn = 0;
inline constexpr std::size_t GuidColumn = 3;
inline constexpr std::size_t PropertyColumn = 4;
inline constexpr std::size_t MessageColumn = 7;
inline constexpr const char* Ticked = "[X]";
inline constexpr const char* Done = "Done";
inline constexpr const char* Error = "error!";

bool ticked(const ListRow& row);
bool done(const ListRow& row);
bool failed(const ListRow& row);

/// The row's designation has no property set, and its name is on the element neither as attribute nor as property or
/// classification.
bool namesNothing(const ListRow& row);

}  // namespace console::reviewlist
