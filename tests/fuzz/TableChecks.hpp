#pragma once
// What must hold for any table that was read.

#include "fuzz/Checks.hpp"
#include "tables/Reading.hpp"

namespace fuzz {

/// Places ascend, texts have no line ends.
void requireWellFormed(const tables::Table& table);
/// What it asks for fits into update files, each update into its line.
void requireAskable(const tables::ReadTable& read);

}  // namespace fuzz
