#pragma once

#include "model/Progress.hpp"
#include "model/Result.hpp"
#include "model/step/Disk.hpp"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace model::step {

/// "PATH: what", for a file that cannot be written.
Error cannotWrite(const std::filesystem::path& path, const std::string& what);

/// Whether `target` can be replaced at all: it is a plain file that we may write, or there is none yet.
Status checkTarget(const std::filesystem::path& target, const FileState& state);

/// Writes a new version of `target` beside it and gives it the name. Until that last step the old file is untouched,
/// and after any error the new one is gone.
/// @param old     as last seen. Another version found there when the new one is complete is not replaced.
/// @param force   replace it all the same.
Status replaceFile(Disk& disk, const std::filesystem::path& target, const FileState& old, bool force,
                   std::span<const std::string_view> pieces, const Progress& progress);

}  // namespace model::step
