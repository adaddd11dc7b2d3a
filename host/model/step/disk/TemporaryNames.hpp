#pragma once
// The names of the files that a new version is written to before it takes the place of the old one.

#include <filesystem>
#include <string>

namespace model::step {

/// ".house.ifc.1f3a9c27.tmp" beside "house.ifc": hidden, recognised by removeLeftOvers, and no longer than a name may
/// be. Another one each time.
std::string temporaryName(const std::filesystem::path& target);

/// Removes what savers of `target` that were killed have left behind. A saver holds the advisory lock on its temporary
/// file, and the lock is gone with the process: what is locked is being written and stays. What cannot be removed stays
/// too: that is no reason not to save.
void removeLeftOvers(const std::filesystem::path& target);

}  // namespace model::step
