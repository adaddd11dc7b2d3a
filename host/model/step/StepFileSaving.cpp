#include "model/step/StepFileContent.hpp"
#include "model/step/disk/Disk.hpp"
#include "model/step/disk/FileLock.hpp"
#include "model/step/disk/Saving.hpp"
#include "model/step/editing/Pieces.hpp"
#include "model/step/syntax/Characters.hpp"

#include <zip.h>

#include <algorithm>
#include <new>

namespace model::step {

namespace {

namespace fs = std::filesystem;

bool isArchiveName(const fs::path& path) {
    return equalIgnoringCase(path.extension().string(), ".ifczip");
}

}  // namespace

Status StepFile::Content::save(const fs::path& name, const SaveOptions& options) {
    Disk& disk = options.disk == nullptr ? Disk::real() : *options.disk;
    fs::path target;
    if (const std::error_code error = disk.resolve(name, target)) return cannotWrite(name, error);
    // Somebody else may hold the lock on the target, whichever file was opened.
    std::string holder;
    FileHandle lockWhileSaving;
    if (!lock || target != lockedPath) lockWhileSaving = lockFile(target, holder);
    if (!holder.empty()) return openElsewhere(target, holder);
    if (Status saved = saveAs(target, options, disk); !saved) return saved;
    savedFingerprint = changes.fingerprint();
    if (options.moveLock && target != lockedPath) {
        lockedPath = target;
        lock = lockFile(target, lockedBy);
    }
    return {};
}

Status StepFile::Content::saveAs(const fs::path& target, const SaveOptions& options, Disk& disk) {
    FileState old;
    if (const std::error_code error = disk.state(target, old)) return cannotWrite(target, error);
    if (Status possible = checkTarget(target, old); !possible) return possible;
    const auto known = versions.find(target);
    if (!options.force && old.exists && known != versions.end() && !known->second.sameVersion(old))
        return changedSince(target);
    Status written =
        savesArchive(target) ? writeArchive(target, old, options, disk) : write(target, old, options, disk);
    // Even where the last sync failed: what is there now is ours.
    FileState now;
    if (!disk.state(target, now) && (written || !now.sameVersion(old))) versions[target] = now;
    // The lock stays on the old version, which has lost its name.
    if (written && target == lockedPath && lock) lock = lockFile(target, lockedBy);
    return written;
}

bool StepFile::Content::savesArchive(const fs::path& target) const {
    return target == path ? archive.size != 0 : isArchiveName(target);
}

/// The time is that of the model's file, so that the same edits give the same bytes.
ModelEntry StepFile::Content::newEntry(const fs::path& target) const {
    const auto origin = versions.find(path);
    constexpr std::time_t OldestInZip = 315'619'200;  // in the first days of 1980
    const std::time_t modified = origin == versions.end() ? 0 : origin->second.modified / 1'000'000'000;
    return {target.stem().string() + ".ifc", 0, ZIP_CM_DEFLATE, std::max(modified, OldestInZip)};
}

Status StepFile::Content::write(const fs::path& target, const FileState& old, const SaveOptions& options, Disk& disk) {
    return replaceFile(disk, target, old, options.force, pieces(index, changes), options.progress);
}

Status StepFile::Content::writeArchive(const fs::path& target, const FileState& old, const SaveOptions& options,
                                       Disk& disk) {
    const std::string_view unchanged = archive.text();
    if (changes.fingerprint() == 0 && !unchanged.empty())
        return replaceFile(disk, target, old, options.force, {&unchanged, 1}, options.progress);
    ModelEntry model = entry;
    if (unchanged.empty()) model = newEntry(target);
    const Result<std::string> packed = step::writeArchive(unchanged, model, pieces(index, changes), options.progress);
    if (!packed) return cannotWrite(target, packed.error().message);
    const std::string_view whole = *packed;
    return replaceFile(disk, target, old, options.force, {&whole, 1}, options.progress);
}

Status StepFile::save(const fs::path& path, const SaveOptions& options) try {
    return content_->save(path, options);
} catch (const std::bad_alloc&) {
    return cannotWrite(path, "there is not enough memory to save it; the old file is untouched");
}

std::string StepFile::bytes() const {
    std::string result;
    const std::vector<std::string_view> parts = pieces(content_->index, content_->changes);
    std::size_t size = 0;
    for (const std::string_view part : parts) size += part.size();
    result.reserve(size);
    for (const std::string_view part : parts) result.append(part);
    return result;
}

}  // namespace model::step
