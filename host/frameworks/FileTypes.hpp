#pragma once
// The file types registered in this process, by every add-on.

#include "FileTypeManager.hpp"

namespace frameworks {

/// @return the type, or null for an unknown identifier; valid until it is removed.
const FTM::FileType* registeredFileType(FTM::TypeID type);

}  // namespace frameworks
