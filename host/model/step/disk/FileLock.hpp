#pragma once
// The advisory lock by which two hosts on one file learn of each other. It lives as long as the open file does and is
// gone with the program, crash included.

#include "model/step/disk/FileHandle.hpp"

#include <filesystem>
#include <string>

namespace model::step {

enum class LockResult : std::uint8_t {
    Taken,
    HeldByOther,
    Unsupported,  ///< Some network file systems have no locks, or want the file open for writing.
};

/// Does not wait. The lock belongs to the open file: it is held until that is closed or unlock().
LockResult tryLock(const FileHandle& file);
void unlock(const FileHandle& file);

/// The program that holds the lock, for a person: "modelhost (process 1234)".
std::string holderOfLock(const FileState& file);

/// A lock on the file as it is there now. Empty where there is no file, or no locks.
/// @param holder  who has it, where another program does; else empty.
FileHandle lockFile(const std::filesystem::path& path, std::string& holder);

}  // namespace model::step
