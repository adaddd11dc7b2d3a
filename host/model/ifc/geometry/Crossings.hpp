#pragma once

#include <clipper.hpp>

namespace model::ifc {

/// Whether the edges of closed rings cross one another more often than this. What only touches does not cross. Each
/// crossing is a corner to be put together later, so this is asked first; it stops at the first one too many.
/// @param rings  With coordinates below 2^30.
bool crossMoreThan(const ClipperLib::Paths& rings, std::size_t most);

}  // namespace model::ifc
