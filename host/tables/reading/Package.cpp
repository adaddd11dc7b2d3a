#include "tables/reading/Package.hpp"

#include "text/ArchiveNames.hpp"
#include "text/Message.hpp"

#include <zip.h>

#include <algorithm>
#include <vector>

namespace tables {
namespace {

/// Sheets pack to a tenth or so, to a hundredth where they say the same all over. What gives more was made to fill a
/// machine.
constexpr std::uint64_t HonestRatio = 250;
constexpr std::uint64_t HarmlessSize = std::uint64_t{64} << 20U;
constexpr std::size_t Stretch = std::size_t{64} << 10U;

struct CloseEntry {
    void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};
using EntryHandle = std::unique_ptr<zip_file_t, CloseEntry>;

bool isEncrypted(zip_t* archive, zip_uint64_t index) {
    zip_stat_t entry{};
    return zip_stat_index(archive, index, 0, &entry) == 0 && (entry.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 &&
           entry.encryption_method != ZIP_EM_NONE;
}

Error damaged(const std::string& part, const std::string& reason) {
    return {text::message("the workbook is damaged: {} {}; open and save it with its own program, or fetch it again",
                          part, reason)};
}

}  // namespace

void Package::Close::operator()(zip* archive) const {
    zip_discard(archive);
}

Result<Package> Package::open(std::string_view bytes) {
    // Before libzip sees them: it would put the names into a table whose hash anybody can foresee.
    if (text::hasCrowdedNames(bytes)) {
        return Error{text::message(
            "the workbook holds thousands of parts whose names were chosen to keep programs busy; do not trust it")};
    }
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
    zip_t* archive = source == nullptr ? nullptr : zip_open_from_source(source, ZIP_RDONLY, &error);
    const std::string reason = zip_error_strerror(&error);
    zip_error_fini(&error);
    if (archive != nullptr) return Package(archive, std::max(HarmlessSize, HonestRatio * bytes.size()));
    // An archive that does not open has not taken its source.
    zip_source_free(source);
    return Error{
        text::message("the workbook is damaged: {}; fetch it again, or open and save it with its own program", reason)};
}

bool Package::has(const std::string& part) const {
    return zip_name_locate(archive_.get(), part.c_str(), 0) >= 0;
}

Status Package::read(const std::string& part, const Sink& sink) {
    const zip_int64_t found = zip_name_locate(archive_.get(), part.c_str(), 0);
    if (found < 0) return damaged(part, text::message("is missing"));
    const auto index = static_cast<zip_uint64_t>(found);
    if (isEncrypted(archive_.get(), index))
        return Error{text::message("the workbook is encrypted; save it without a password")};
    const EntryHandle entry(zip_fopen_index(archive_.get(), index, 0));
    if (entry == nullptr) return damaged(part, text::message("cannot be unpacked, {}", zip_strerror(archive_.get())));
    std::vector<char> stretch(Stretch);
    for (;;) {
        const zip_int64_t count = zip_fread(entry.get(), stretch.data(), stretch.size());
        if (count < 0) return damaged(part, text::message("cannot be unpacked"));
        if (count == 0) return {};
        // Of all parts together: many small ones fill a machine as one large one does.
        unpacked_ += static_cast<std::uint64_t>(count);
        if (unpacked_ > mostUnpacked_) {
            return Error{text::message(
                "the workbook unpacks to more than {} bytes, which no honest one of its size does; do not trust it",
                mostUnpacked_)};
        }
        if (!sink({stretch.data(), static_cast<std::size_t>(count)})) return {};
    }
}

std::string Package::beginning(const std::string& part, std::size_t most) {
    std::string bytes;
    const Status status = read(part, [&](std::string_view stretch) {
        bytes += stretch.substr(0, most - bytes.size());
        return bytes.size() < most;
    });
    return status ? bytes : std::string();
}

}  // namespace tables
