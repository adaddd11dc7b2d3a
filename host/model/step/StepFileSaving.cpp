#include "model/step/StepFileContent.hpp"
#include "model/step/disk/ContentSum.hpp"
#include "model/step/disk/Disk.hpp"
#include "model/step/disk/FileLock.hpp"
#include "model/step/disk/Saving.hpp"
#include "model/step/editing/FileContent.hpp"
#include "model/step/syntax/Characters.hpp"
#include "text/Message.hpp"

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

Status StepFile::Content::save(const fs::path& name, const SaveOptions& options, Replacement& replacement) {
    fs::path& target = replacement.target;
    if (const std::error_code error = replacement.disk.resolve(name, target)) return cannotWrite(name, error);
    // Somebody else may hold the lock on the target, whichever file was opened.
    std::string holder;
    FileHandle lockWhileSaving;
    if (!lock || target != lockedPath) lockWhileSaving = lockFile(target, holder);
    if (!holder.empty()) return openElsewhere(target, holder);
    if (Status saved = saveAs(replacement); !saved) return saved;
    savedFingerprint = changes.fingerprint();
    // The lock stays on the old version, which has lost its name.
    if (target == lockedPath && lock) lock = lockFile(target, lockedBy);
    if (options.moveLock && target != lockedPath) {
        lockedPath = target;
        lock = lockFile(target, lockedBy);
    }
    return {};
}

/// Whether what is at the target now is the version known. One that was only touched is told by its bytes: a backup or
/// a file service that notes something in the file's attributes is no reason to refuse.
bool StepFile::Content::isKnown(const KnownVersion& known, const Replacement& replacement) const {
    const FileState& now = replacement.old;
    if (known.state.sameVersion(now)) return true;
    if (!known.state.sameButTouched(now)) return false;
    ContentSum opened;
    if (!known.sum) opened.add(archive.size != 0 ? archive.text() : bytes.text());
    std::uint64_t sum = 0;
    return !replacement.disk.sum(replacement.target, sum) && sum == known.sum.value_or(opened.result());
}

Status StepFile::Content::saveAs(Replacement& replacement) {
    const fs::path& target = replacement.target;
    FileState& old = replacement.old;
    if (const std::error_code error = replacement.disk.state(target, old)) return cannotWrite(target, error);
    if (Status possible = checkTarget(target, old); !possible) return possible;
    const auto known = versions.find(target);
    if (!replacement.force && old.exists && known != versions.end() && !isKnown(known->second, replacement))
        return changedSince(target);
    // Made before there is anything to note: once the new version has the name nothing may fail until it is known here
    // as ours. The next save would take it for somebody else's.
    std::map<fs::path, KnownVersion> saved;
    KnownVersion& version = saved[target];
    const auto note = [&] {
        version.sum = replacement.sum;
        if (!replacement.done || replacement.disk.state(target, version.state)) return;
        versions.erase(target);
        versions.merge(saved);
    };
    try {
        Status written = savesArchive(target) ? writeArchive(replacement) : write(replacement);
        note();
        return written;
    } catch (...) {
        note();
        throw;
    }
}

bool StepFile::Content::savesArchive(const fs::path& target) const {
    return target == path ? archive.size != 0 : isArchiveName(target);
}

/// The time is that of the model's file, so that the same edits give the same bytes.
ModelEntry StepFile::Content::newEntry(const fs::path& target) const {
    const auto origin = versions.find(path);
    constexpr std::time_t OldestInZip = 315'619'200;  // in the first days of 1980
    const std::time_t modified = origin == versions.end() ? 0 : origin->second.state.modified / 1'000'000'000;
    return {target.stem().string() + ".ifc", 0, ZIP_CM_DEFLATE, std::max(modified, OldestInZip)};
}

Status StepFile::Content::write(Replacement& replacement) {
    return replaceFile(replacement, fileContent(index, changes));
}

Status StepFile::Content::writeArchive(Replacement& replacement) {
    const fs::path& target = replacement.target;
    const std::string_view unchanged = archive.text();
    if (changes.fingerprint() == 0 && !unchanged.empty()) return replaceFile(replacement, {&unchanged, 1});
    ModelEntry model = entry;
    if (unchanged.empty()) model = newEntry(target);
    const Result<std::string> packed =
        step::writeArchive(unchanged, model, fileContent(index, changes), replacement.progress);
    if (!packed) return cannotWrite(target, packed.error().message);
    const std::string_view whole = *packed;
    return replaceFile(replacement, {&whole, 1});
}

Status StepFile::save(const fs::path& path, const SaveOptions& options) {
    Replacement replacement{
        options.disk == nullptr ? Disk::real() : *options.disk, {}, {}, options.force, options.progress};
    try {
        return content_->save(path, options, replacement);
    } catch (const std::bad_alloc&) {
        if (replacement.done) {
            return cannotWrite(path, text::message("the file was written, but then there was not enough memory to go "
                                                   "on working on it; close other programs and save again"));
        }
        return cannotWrite(path, text::message("there is not enough memory to save it; the old file is untouched"));
    }
}

std::string StepFile::bytes() const {
    std::string result;
    const std::vector<std::string_view> parts = fileContent(content_->index, content_->changes);
    std::size_t size = 0;
    for (const std::string_view part : parts) size += part.size();
    result.reserve(size);
    for (const std::string_view part : parts) result.append(part);
    return result;
}

}  // namespace model::step
