#pragma once

#include "model/base/Progress.hpp"
#include "model/base/Result.hpp"
#include "model/step/disk/Disk.hpp"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

namespace model::step {

/// "PATH: what", for a file that cannot be written.
Error cannotWrite(const std::filesystem::path& path, const std::string& what);

/// The same for what the file system answered, with what to do about it.
Error cannotWrite(const std::filesystem::path& path, const std::error_code& error);
/// Another program has written or replaced the file. ErrorKind::ChangedSince.
Error changedSince(const std::filesystem::path& path);
/// Another host has the file open for editing.
Error openElsewhere(const std::filesystem::path& path, const std::string& holder);

/// Whether `target` can be replaced at all: it is a plain file that we may write, or there is none yet.
Status checkTarget(const std::filesystem::path& target, const FileState& state);

/// What can be known before anything is written: the folder is there and may be written, the file is a plain one that
/// may be replaced, and no other host has it open.
Status checkTarget(const std::filesystem::path& name);

/// Writes a new version of `target` beside it and gives it the name. Until that last step the old file is untouched,
/// and after any error the new one is gone.
/// @param old     as last seen. Another version found there when the new one is complete is not replaced.
/// @param force   replace it all the same.
Status replaceFile(Disk& disk, const std::filesystem::path& target, const FileState& old, bool force,
                   std::span<const std::string_view> pieces, const Progress& progress);

}  // namespace model::step
