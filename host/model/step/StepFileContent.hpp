#pragma once
// What a StepFile is made of.

#include "model/step/StepFile.hpp"
#include "model/step/disk/Archive.hpp"
#include "model/step/disk/FileReading.hpp"
#include "model/step/disk/Saving.hpp"
#include "model/step/editing/Changes.hpp"
#include "model/step/index/Index.hpp"

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace model::step {

/// A version of a file that this program has read or written.
struct KnownVersion {
    FileState state;
    std::optional<std::uint64_t> sum;  ///< ContentSum; nothing for the one opened, whose bytes are at hand.
};

struct StepFile::Content {
    explicit Content(Bytes&& source) : bytes(std::move(source)), index(bytes.text()), changes(index) {}

    Bytes bytes;
    Index index;
    Changes changes;
    std::uint64_t savedFingerprint = 0;

    // --- Where it came from; all empty for bytes in memory ---
    std::filesystem::path path;        ///< Links followed.
    std::filesystem::path lockedPath;  ///< `path`, until the lock moves to a file saved under another name.
    FileHandle lock;                   ///< Holds the advisory lock on the file at `lockedPath`.
    std::string lockedBy;
    Bytes archive;  ///< The whole .ifczip that the model came in: another program may change the file.
    ModelEntry entry;
    /// By path: the version opened, and those saved. Any other one found there is somebody else's.
    std::map<std::filesystem::path, KnownVersion> versions;

    Status checkEditable(Slot slot) const;
    Status edit(Slot slot, Result<std::string> newText);
    Result<KeywordCode> checkNew(std::string_view body);
    /// @param path  of `replacement`, links not followed yet.
    Status save(const std::filesystem::path& path, const SaveOptions& options, Replacement& replacement);

private:
    ModelEntry newEntry(const std::filesystem::path& target) const;
    bool savesArchive(const std::filesystem::path& target) const;
    bool isKnown(const KnownVersion& known, const Replacement& replacement) const;
    Status saveAs(Replacement& replacement);
    Status write(Replacement& replacement);
    Status writeArchive(Replacement& replacement);
};

}  // namespace model::step
