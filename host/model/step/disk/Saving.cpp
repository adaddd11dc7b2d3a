#include "model/step/disk/Saving.hpp"

#include "model/step/disk/ContentSum.hpp"
#include "model/step/disk/FileLock.hpp"
#include "text/Message.hpp"

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <memory>

namespace model::step {

namespace {

namespace fs = std::filesystem;

std::string advice(const std::error_code& error) {
    if (error == std::errc::no_space_on_device) return text::message("free some space, or save in another place");
    if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted)
        return text::message("the folder or the file may not be written; save in another place");
    if (error == std::errc::read_only_file_system) return text::message("save in another place");
    if (error == std::errc::filename_too_long) return text::message("choose a shorter name");
    return text::message("save in another place, or try again");
}

std::string folderOf(const fs::path& target) {
    const fs::path folder = target.parent_path();
    return folder.empty() ? "." : folder.string();
}

Error failed(const Replacement& replacement, const std::error_code& error) {
    Error failure = cannotWrite(replacement.target, error);
    if (replacement.old.exists) failure.message += text::message("; the old file is untouched");
    return failure;
}

Error cancelled(const fs::path& target) {
    return cannotWrite(target, text::message("saving was cancelled; the old file is untouched"));
}

/// Hands the pieces over in stretches, so that there is a moment to report between them.
Status writePieces(TemporaryFile& file, Replacement& replacement, std::span<const std::string_view> pieces) {
    constexpr std::size_t Stretch = std::size_t{1} << 20U;  // What was written is still near when it is summed up.
    std::uint64_t total = 0;
    for (const std::string_view piece : pieces) total += piece.size();
    Throttle throttle(replacement.progress);
    ContentSum sum;
    std::uint64_t done = 0;
    std::vector<std::string_view> batch;
    std::size_t batchSize = 0;
    const auto flush = [&]() -> Status {
        if (const std::error_code error = file.write(batch)) return failed(replacement, error);
        for (const std::string_view part : batch) sum.add(part);
        done += batchSize;
        batch.clear();
        batchSize = 0;
        if (!throttle.report(done, total)) return cancelled(replacement.target);
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
    Status flushed = flush();
    replacement.sum = sum.result();
    return flushed;
}

bool mayGiveAway(const FileState& file) {
    return ::geteuid() == 0 || file.owner == ::geteuid();
}

/// A new file has our group, or that of a folder that hands its own down; any group of ours can be given to it.
bool mayKeepGroup(const FileState& file, const fs::path& folder) {
    if (::geteuid() == 0 || file.group == ::getegid()) return true;
    struct stat found {};
    if (::stat(folder.c_str(), &found) == 0 && (found.st_mode & S_ISGID) != 0 && found.st_gid == file.group)
        return true;
    std::vector<gid_t> groups(static_cast<std::size_t>(std::max(0, ::getgroups(0, nullptr))));
    const int count = ::getgroups(static_cast<int>(groups.size()), groups.data());
    groups.resize(static_cast<std::size_t>(std::max(0, count)));
    return std::find(groups.begin(), groups.end(), file.group) != groups.end();
}

std::string userName(std::uint32_t user) {
    const struct passwd* known = ::getpwuid(user);
    return known != nullptr ? known->pw_name : std::to_string(user);
}

std::string groupName(std::uint32_t group) {
    const struct group* known = ::getgrgid(group);
    return known != nullptr ? known->gr_name : std::to_string(group);
}

}  // namespace

Error cannotWrite(const fs::path& path, const std::string& what) {
    return {ErrorKind::CannotWrite, path.string() + ": " + what};
}

Error cannotWrite(const fs::path& path, const std::error_code& error) {
    std::error_code ignored;
    // The file itself need not exist: what is missing may be its folder.
    const bool folderMissing = error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
    if (folderMissing && !fs::is_directory(folderOf(path), ignored)) {
        return cannotWrite(
            path, text::message("there is no folder {}; make it first, or save in another place", folderOf(path)));
    }
    return cannotWrite(path, error.message() + "; " + advice(error));
}

Error changedSince(const fs::path& path) {
    return {ErrorKind::ChangedSince, text::message("{}: another program has changed the file since it was opened; save "
                                                   "under another name, or overwrite it on purpose",
                                                   path.string())};
}

Error openElsewhere(const fs::path& path, const std::string& holder) {
    return cannotWrite(path,
                       text::message("the file is open in {}; close it there, or save under another name", holder));
}

Status checkTarget(const fs::path& target, const FileState& state) {
    if (!state.exists) return {};
    if (!state.regular)
        return cannotWrite(target, text::message("it is a folder or a device, not a file; choose another name"));
    // The rename would replace it all the same, since it asks for rights in the folder only.
    if (!state.writable)
        return cannotWrite(target, text::message("the file is write-protected; save under another name"));
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

std::vector<std::string> targetWarnings(const fs::path& name) {
    Disk& disk = Disk::real();
    fs::path target;
    FileState state;
    if (disk.resolve(name, target) || disk.state(target, state) || !state.exists || !state.regular) return {};
    std::vector<std::string> warnings;
    const auto add = [&](const std::string& what) { warnings.push_back(target.string() + ": " + what); };
    if (state.links > 1) {
        add(
            text::message("the file has {} names (hard links); saving changes it under this name alone, the others "
                          "keep the old version",
                          state.links));
    }
    if (!mayGiveAway(state)) {
        add(text::message("the file belongs to {}; saved, it belongs to {}", userName(state.owner),
                          userName(::geteuid())));
    }
    if (!mayKeepGroup(state, target.parent_path())) {
        add(
            text::message("the file is of the group {}, which is not one of yours; saved, it is of a group of yours, "
                          "with the rights of all others",
                          groupName(state.group)));
    }
    return warnings;
}

Status replaceFile(Replacement& replacement, std::span<const std::string_view> pieces) {
    Disk& disk = replacement.disk;
    const fs::path& target = replacement.target;
    const fs::path folder = target.parent_path();
    std::unique_ptr<TemporaryFile> file;
    if (const std::error_code error = disk.createTemporary(target, replacement.old, file))
        return failed(replacement, error);
    if (Status written = writePieces(*file, replacement, pieces); !written) return written;
    if (replacement.old.exists) {
        if (const std::error_code error = file->takeOver(replacement.old, target)) return failed(replacement, error);
    }
    // Before the name: else a power failure could leave the name with a file whose bytes never reached the disk.
    if (const std::error_code error = file->sync()) return failed(replacement, error);
    // Asked again right before the rename: writing took its time, and somebody may have saved meanwhile.
    FileState now;
    if (const std::error_code error = disk.state(target, now)) return failed(replacement, error);
    if (!replacement.force && now.exists && !now.sameVersion(replacement.old)) return changedSince(target);
    if (const std::error_code error = file->replace(target)) return failed(replacement, error);
    // Whatever fails from here on, the new version has the name and the caller has to know it as its own.
    replacement.done = true;
    if (const std::error_code error = disk.syncFolder(folder)) {
        return cannotWrite(target,
                           text::message("the file was written, but a power failure might undo that: {}; save again",
                                         error.message()));
    }
    return {};
}

}  // namespace model::step
