#include "model/step/disk/Saving.hpp"

#include "model/step/disk/FileLock.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <memory>
#include <vector>

namespace model::step {

namespace {

namespace fs = std::filesystem;

const char* advice(const std::error_code& error) {
    if (error == std::errc::no_space_on_device) return "free some space, or save in another place";
    if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted)
        return "the folder or the file may not be written; save in another place";
    if (error == std::errc::read_only_file_system) return "save in another place";
    if (error == std::errc::filename_too_long) return "choose a shorter name";
    return "save in another place, or try again";
}

std::string folderOf(const fs::path& target) {
    const fs::path folder = target.parent_path();
    return folder.empty() ? "." : folder.string();
}

Error failed(const fs::path& target, const FileState& old, const std::error_code& error) {
    Error failure = cannotWrite(target, error);
    if (old.exists) failure.message += "; the old file is untouched";
    return failure;
}

Error cancelled(const fs::path& target) {
    return cannotWrite(target, "saving was cancelled; the old file is untouched");
}

/// Hands the pieces over in stretches, so that there is a moment to report between them.
Status writePieces(TemporaryFile& file, const fs::path& target, const FileState& old,
                   std::span<const std::string_view> pieces, const Progress& progress) {
    constexpr std::size_t Stretch = std::size_t{8} << 20U;
    std::uint64_t total = 0;
    for (const std::string_view piece : pieces) total += piece.size();
    Throttle throttle(progress);
    std::uint64_t done = 0;
    std::vector<std::string_view> batch;
    std::size_t batchSize = 0;
    const auto flush = [&]() -> Status {
        if (const std::error_code error = file.write(batch)) return failed(target, old, error);
        done += batchSize;
        batch.clear();
        batchSize = 0;
        if (!throttle.report(done, total)) return cancelled(target);
        return {};
    };
    for (std::string_view piece : pieces) {
        while (!piece.empty()) {
            batch.push_back(piece.substr(0, Stretch - batchSize));
            batchSize += batch.back().size();
            piece.remove_prefix(batch.back().size());
            if (batchSize < Stretch) continue;
            if (Status flushed = flush(); !flushed) return flushed;
        }
    }
    return flush();
}

}  // namespace

Error cannotWrite(const fs::path& path, const std::string& what) {
    return {ErrorKind::CannotWrite, path.string() + ": " + what};
}

Error cannotWrite(const fs::path& path, const std::error_code& error) {
    std::error_code ignored;
    const bool folderMissing = error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
    if (folderMissing && !fs::is_directory(folderOf(path), ignored))
        return cannotWrite(path, "there is no folder " + folderOf(path) + "; make it first, or save in another place");
    return cannotWrite(path, error.message() + "; " + advice(error));
}

Error changedSince(const fs::path& path) {
    return {ErrorKind::ChangedSince, path.string() +
                                         ": another program has changed the file since it was opened; save "
                                         "under another name, or overwrite it on purpose"};
}

Error openElsewhere(const fs::path& path, const std::string& holder) {
    return cannotWrite(path, "the file is open in " + holder + "; close it there, or save under another name");
}

Status checkTarget(const fs::path& target, const FileState& state) {
    if (!state.exists) return {};
    if (!state.regular) return cannotWrite(target, "it is a folder or a device, not a file; choose another name");
    if (!state.writable) return cannotWrite(target, "the file is write-protected; save under another name");
    return {};
}

Status checkTarget(const fs::path& name) {
    Disk& disk = Disk::real();
    fs::path target;
    FileState state;
    if (const std::error_code error = disk.resolve(name, target)) return cannotWrite(name, error);
    if (const std::error_code error = disk.state(target, state)) return cannotWrite(name, error);
    if (Status possible = checkTarget(target, state); !possible) return possible;
    if (::faccessat(AT_FDCWD, target.parent_path().c_str(), W_OK | X_OK, AT_EACCESS) != 0)
        return cannotWrite(name, std::error_code(errno, std::generic_category()));
    std::string holder;
    const FileHandle heldForTheMoment = lockFile(target, holder);
    if (!holder.empty()) return openElsewhere(target, holder);
    return {};
}

Status replaceFile(Disk& disk, const fs::path& target, const FileState& old, bool force,
                   std::span<const std::string_view> pieces, const Progress& progress) {
    std::unique_ptr<TemporaryFile> file;
    if (const std::error_code error = disk.createTemporary(target, file)) return failed(target, old, error);
    if (Status written = writePieces(*file, target, old, pieces, progress); !written) return written;
    if (old.exists) {
        if (const std::error_code error = file->takeOver(old, target)) return failed(target, old, error);
    }
    if (const std::error_code error = file->sync()) return failed(target, old, error);
    FileState now;
    if (const std::error_code error = disk.state(target, now)) return failed(target, old, error);
    if (!force && now.exists && !now.sameVersion(old)) return changedSince(target);
    if (const std::error_code error = file->replace(target)) return failed(target, old, error);
    if (const std::error_code error = disk.syncFolder(target.parent_path()))
        return cannotWrite(
            target, "the file was written, but a power failure might undo that: " + error.message() + "; save again");
    return {};
}

}  // namespace model::step
