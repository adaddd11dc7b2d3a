#pragma once
// The zip around the model in an .ifczip.

#include "model/base/Progress.hpp"
#include "model/base/Result.hpp"
#include "model/step/disk/FileReading.hpp"

#include <cstdint>
#include <ctime>
#include <span>
#include <string>
#include <string_view>

namespace model::step {

/// Whether the bytes begin as those of a zip do, whatever the file is named.
bool isArchive(std::string_view bytes);

/// Which entry of an archive is the model.
struct ModelEntry {
    std::string name;
    std::uint64_t number = 0;
    std::int32_t method = 0;   ///< Compression, as libzip numbers it.
    std::time_t modified = 0;  ///< Kept when it is written again, so that the same edits give the same bytes.
};

/// The one .ifc entry of an archive. Its name serves only as a name, never as a path.
/// @return an error, without the file's name, where there is none or several, where it is encrypted or damaged, or
///         where it would unpack to far more than an archive of its size can honestly hold: beyond 64 MiB, 200 times
///         what is really there.
Result<Bytes> readArchive(std::string_view archive, ModelEntry& entry, const Progress& progress);

/// The archive with the model in it replaced; the other entries keep their bytes.
/// @param archive  empty for a new one, which then holds the model as `entry.name` alone.
/// @param entry    as readArchive found it; of the archive's own entries only its number counts.
/// @return the whole archive in memory; an error, without the file's name, where packing fails or is cancelled.
Result<std::string> writeArchive(std::string_view archive, const ModelEntry& entry,
                                 std::span<const std::string_view> model, const Progress& progress);

}  // namespace model::step
