#include "model/step/Saving.hpp"

#include <algorithm>
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
    if (error == std::errc::no_such_file_or_directory) return "the folder does not exist; choose another one";
    return "save in another place, or try again";
}

Error failed(const fs::path& target, const std::error_code& error) {
    return cannotWrite(target, error.message() + "; " + advice(error) + "; the old file is untouched");
}

Error cancelled(const fs::path& target) {
    return cannotWrite(target, "saving was cancelled; the old file is untouched");
}

/// Hands the pieces over in stretches, so that there is a moment to report between them.
Status writePieces(TemporaryFile& file, const fs::path& target, std::span<const std::string_view> pieces,
                   const Progress& progress) {
    constexpr std::size_t stretch = std::size_t{8} << 20U;
    std::uint64_t total = 0;
    for (const std::string_view piece : pieces) total += piece.size();
    Throttle throttle(progress);
    std::uint64_t done = 0;
    std::vector<std::string_view> batch;
    std::size_t batchSize = 0;
    const auto flush = [&]() -> Status {
        if (const std::error_code error = file.write(batch)) return failed(target, error);
        done += batchSize;
        batch.clear();
        batchSize = 0;
        if (!throttle.report(done, total)) return cancelled(target);
        return {};
    };
    for (std::string_view piece : pieces) {
        while (!piece.empty()) {
            batch.push_back(piece.substr(0, stretch - batchSize));
            batchSize += batch.back().size();
            piece.remove_prefix(batch.back().size());
            if (batchSize < stretch) continue;
            if (Status flushed = flush(); !flushed) return flushed;
        }
    }
    return flush();
}

}  // namespace

Error cannotWrite(const fs::path& path, const std::string& what) {
    return {ErrorKind::CannotWrite, path.string() + ": " + what};
}

Status checkTarget(const fs::path& target, const FileState& state) {
    if (!state.exists) return {};
    if (!state.regular) return cannotWrite(target, "it is a folder or a device, not a file; choose another name");
    if (!state.writable) return cannotWrite(target, "the file is write-protected; save under another name");
    return {};
}

Status replaceFile(Disk& disk, const fs::path& target, const FileState& old, bool force,
                   std::span<const std::string_view> pieces, const Progress& progress) {
    std::unique_ptr<TemporaryFile> file;
    if (const std::error_code error = disk.createTemporary(target, file)) return failed(target, error);
    if (Status written = writePieces(*file, target, pieces, progress); !written) return written;
    if (old.exists) {
        if (const std::error_code error = file->takeOver(old, target)) return failed(target, error);
    }
    if (const std::error_code error = file->sync()) return failed(target, error);
    FileState now;
    if (const std::error_code error = disk.state(target, now)) return failed(target, error);
    if (!force && now.exists && !now.sameVersion(old))
        return cannotWrite(target, "another program has changed the file meanwhile; save under another name");
    if (const std::error_code error = file->replace(target)) return failed(target, error);
    if (const std::error_code error = disk.syncFolder(target.parent_path()))
        return cannotWrite(
            target, "the file was written, but a power failure might undo that: " + error.message() + "; save again");
    return {};
}

}  // namespace model::step
