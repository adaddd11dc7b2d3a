#pragma once

#include "model/base/Progress.hpp"
#include "model/base/Result.hpp"
#include "model/step/disk/FileHandle.hpp"
#include "model/step/disk/Region.hpp"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace model::step {

/// "PATH: what", for a file that cannot be read.
Error cannotRead(const std::filesystem::path& path, const std::string& what);

/// Bytes held in memory of our own, with SlackBytes zeros behind them for the sweep.
struct Bytes {
    Region memory;
    std::size_t size = 0;

    Bytes() = default;
    /// Zeros, to be filled. Throws std::bad_alloc where there is no room, for any length.
    explicit Bytes(std::uint64_t length);
    std::string_view text() const { return {memory.data(), size}; }
};

struct ReadFile {
    Bytes bytes;
    FileState state;    ///< Of the version read, for sameVersion().
    FileHandle handle;  ///< Still open, for the lock.
};

/// Reads a whole file. It is copied rather than mapped: what another program writes later then neither mixes into the
/// model nor, where the file gets shorter, ends the program.
/// @return ErrorKind::CannotRead, with the file's name, also where another program wrote it meanwhile.
Result<ReadFile> readFile(const std::filesystem::path& path, const Progress& progress);

}  // namespace model::step
