#pragma once

#include "model/base/Progress.hpp"
#include "model/base/Result.hpp"
#include "model/step/disk/Disk.hpp"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace model::step {

/// "PATH: what", for a file that cannot be written.
Error cannotWrite(const std::filesystem::path& path, const std::string& what);

/// The same for what the file system answered, with what to do about it.
Error cannotWrite(const std::filesystem::path& path, const std::error_code& error);
/// Another program has written or replaced the file. ErrorKind::ChangedSince. Whether one has since the file was opened
/// is asked in StepFileSaving.cpp; here, whether one has while the new version was written.
Error changedSince(const std::filesystem::path& path);
/// Another host has the file open for editing.
Error openElsewhere(const std::filesystem::path& path, const std::string& holder);

/// Whether `target` can be replaced at all: it is a plain file that we may write, or there is none yet.
Status checkTarget(const std::filesystem::path& target, const FileState& state);

/// What can be known before anything is written: the folder is there and may be written, the file is a plain one that
/// may be replaced, and no other host has it open.
Status checkTarget(const std::filesystem::path& name);

/// What replacing the file will change besides its content, complete lines for a person: other names (hard links) keep
/// the old content, and an owner or group may be lost. Empty where there is nothing to say, also for a file that cannot
/// be replaced at all.
std::vector<std::string> targetWarnings(const std::filesystem::path& name);

/// One file that gives way to a new version. What is told of it must be true even where an exception ends the work.
struct Replacement {
    Disk& disk;
    std::filesystem::path target;  ///< Links followed.
    FileState old;                 ///< As last seen. Another version there when the new one is complete is kept,
    bool force = false;            ///< unless this is set.
    const Progress& progress;
    std::uint64_t sum = 0;  ///< Of the new version, once it is written.
    bool done = false;      ///< The new version has the name.
};

/// Writes a new version of the target beside it and gives it the name. Until that last step the old file is untouched,
/// and after any error before it the new one is gone.
/// @param pieces  the new version's bytes, in order.
/// @return ErrorKind::CannotWrite or ChangedSince; an error with `done` set means that a power failure might undo it.
Status replaceFile(Replacement& replacement, std::span<const std::string_view> pieces);

}  // namespace model::step
