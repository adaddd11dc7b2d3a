#include "model/step/disk/Archive.hpp"

#include "model/step/syntax/Characters.hpp"
#include "text/ArchiveNames.hpp"
#include "text/Message.hpp"

#include <zip.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

namespace model::step {

namespace {

/// Models pack to a tenth or so of their size. An entry that claims more than this was made to fill the memory.
constexpr std::uint64_t HonestRatio = 200;
constexpr std::uint64_t HarmlessSize = std::uint64_t{64} << 20U;

/// The most that an entry may unpack to. How long it is packed is only what the directory says; there is no more of it
/// than the whole archive. Both numbers fill 64 bits if somebody wants them to, so nothing is added to or multiplied by
/// them before they are known to be in bounds.
std::uint64_t mostUnpacked(std::uint64_t packedSize, std::uint64_t archiveSize) {
    return std::max(HarmlessSize, std::min(packedSize, archiveSize) * HonestRatio + (HonestRatio - 1));
}

struct CloseArchive {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
struct CloseEntry {
    void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};
struct ReleaseSource {
    void operator()(zip_source_t* source) const { zip_source_free(source); }
};
using ArchiveHandle = std::unique_ptr<zip_t, CloseArchive>;
using EntryHandle = std::unique_ptr<zip_file_t, CloseEntry>;
using SourceHandle = std::unique_ptr<zip_source_t, ReleaseSource>;

struct ZipError {
    zip_error_t value{};

    ZipError() { zip_error_init(&value); }
    ~ZipError() { zip_error_fini(&value); }
    ZipError(const ZipError&) = delete;
    ZipError& operator=(const ZipError&) = delete;
    std::string text() { return zip_error_strerror(&value); }
};

Error unreadable(std::string message) {
    return {ErrorKind::CannotRead, std::move(message)};
}
Error unwritable(const std::string& reason) {
    return {ErrorKind::CannotWrite, text::message("packing the model failed: {}", reason)};
}

/// A source of bytes in memory, to read from. Holds one reference; opening an archive takes another.
SourceHandle memorySource(std::string_view bytes, ZipError& error) {
    return SourceHandle(zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error.value));
}

/// The same to write to. It gets a copy of its own: libzip 1.7 keeps the beginning of an archive that does not change,
/// and in the end frees that whoever it belongs to.
SourceHandle writableSource(std::string_view bytes, ZipError& error) {
    void* copy = bytes.empty() ? nullptr : std::malloc(bytes.size());
    if (copy == nullptr && !bytes.empty()) throw std::bad_alloc();
    if (copy != nullptr) std::memcpy(copy, bytes.data(), bytes.size());
    zip_source_t* source = zip_source_buffer_create(copy, bytes.size(), 1, &error.value);
    if (source == nullptr) std::free(copy);
    return SourceHandle(source);  // NOLINT(clang-analyzer-unix.Malloc): the copy is freed with the source.
}

ArchiveHandle openArchive(zip_source_t* source, int flags, ZipError& error) {
    zip_source_keep(source);
    zip_t* archive = zip_open_from_source(source, flags, &error.value);
    if (archive == nullptr) zip_source_free(source);
    return ArchiveHandle(archive);
}

bool isModelName(std::string_view name) {
    constexpr std::string_view Extension = ".ifc";
    return name.size() > Extension.size() && equalIgnoringCase(name.substr(name.size() - Extension.size()), Extension);
}

/// @param archiveSize  in bytes, as really there.
Result<zip_stat_t> findModel(zip_t* archive, std::uint64_t archiveSize) {
    zip_stat_t found{};
    std::size_t count = 0;
    const auto entries = static_cast<zip_uint64_t>(std::max<zip_int64_t>(0, zip_get_num_entries(archive, 0)));
    for (zip_uint64_t i = 0; i < entries; ++i) {
        zip_stat_t entry{};
        if (zip_stat_index(archive, i, 0, &entry) != 0 || !isModelName(entry.name)) continue;
        found = entry;
        ++count;
    }
    if (count == 0) {
        return unreadable(
            text::message("the archive holds no .ifc file; choose another one, or export the model as .ifc"));
    }
    if (count > 1)
        return unreadable(text::message("the archive holds several .ifc files; unpack it and open one of them"));
    if (found.encryption_method != ZIP_EM_NONE)
        return unreadable(text::message("the archive is encrypted; unpack it first"));
    if (found.size > mostUnpacked(found.comp_size, archiveSize)) {
        return unreadable(
            text::message("the archive claims to unpack to {} bytes from {}, which no model does; do not trust it",
                          found.size, std::min(found.comp_size, archiveSize)));
    }
    return found;
}

Result<Bytes> unpack(zip_t* archive, const zip_stat_t& model, const Progress& progress) {
    const EntryHandle entry(zip_fopen_index(archive, model.index, 0));
    if (entry == nullptr) {
        return unreadable(
            text::message("the model cannot be unpacked: {}; unpack it with another program", zip_strerror(archive)));
    }
    constexpr zip_uint64_t Stretch = zip_uint64_t{4} << 20U;
    Bytes bytes(model.size);
    Throttle throttle(progress);
    std::size_t done = 0;
    for (zip_int64_t count = 1; count > 0 && done < bytes.size; done += static_cast<std::size_t>(count)) {
        count = zip_fread(entry.get(), bytes.memory.data() + done, std::min<zip_uint64_t>(Stretch, bytes.size - done));
        if (count < 0) return unreadable(text::message("the archive is damaged; fetch it again"));
        // The other half is indexing.
        if (!throttle.report(done / 2, bytes.size)) return unreadable(text::message("opening was cancelled"));
    }
    // An entry that holds more than it claims is damaged too: no more than that was given room. Reading on past the
    // last byte makes the library check the sum.
    char beyond = 0;
    if (done != bytes.size || zip_fread(entry.get(), &beyond, 1) != 0)
        return unreadable(text::message("the archive is damaged; fetch it again"));
    return bytes;
}

/// Puts the model in, in place of the entry it came from.
bool putModel(zip_t* archive, bool isNew, const ModelEntry& entry, std::span<const std::string_view> model) {
    std::vector<zip_buffer_fragment_t> fragments;
    for (const std::string_view piece : model) {
        if (piece.empty()) continue;  // libzip 1.7 reads behind an empty fragment that it begins with
        auto* data = static_cast<zip_uint8_t*>(static_cast<void*>(const_cast<char*>(piece.data())));  // only read
        fragments.push_back({data, piece.size()});
    }
    zip_source_t* source = zip_source_buffer_fragment(archive, fragments.data(), fragments.size(), 0);
    if (source == nullptr) return false;
    zip_int64_t number = static_cast<zip_int64_t>(entry.number);
    if (isNew) {
        number = zip_file_add(archive, entry.name.c_str(), source, ZIP_FL_ENC_UTF_8);
    } else if (zip_file_replace(archive, entry.number, source, 0) != 0) {
        number = -1;
    }
    if (number < 0) {
        zip_source_free(source);
        return false;
    }
    const auto at = static_cast<zip_uint64_t>(number);
    return zip_set_file_compression(archive, at, entry.method, 0) == 0 &&
           zip_file_set_mtime(archive, at, entry.modified, 0) == 0;
}

/// For libzip's two callbacks: one tells how far it is, the other asks whether to go on.
struct PackingProgress {
    Throttle throttle;
    std::uint64_t total = 0;
    bool cancelled = false;
};

void watch(zip_t* archive, PackingProgress& state) {
    const auto tell = [](zip_t*, double part, void* data) {
        auto* packing = static_cast<PackingProgress*>(data);
        const auto done = static_cast<std::uint64_t>(part * static_cast<double>(packing->total));
        if (!packing->throttle.report(done, packing->total)) packing->cancelled = true;
    };
    const auto ask = [](zip_t*, void* data) { return static_cast<PackingProgress*>(data)->cancelled ? 1 : 0; };
    zip_register_progress_callback_with_state(archive, 0.01, tell, nullptr, &state);
    zip_register_cancel_callback_with_state(archive, ask, nullptr, &state);
}

Result<std::string> contents(zip_source_t* source) {
    zip_stat_t stat{};
    if (zip_source_stat(source, &stat) != 0 || zip_source_open(source) != 0)
        return unwritable(zip_error_strerror(zip_source_error(source)));
    std::string bytes(stat.size, '\0');
    const zip_int64_t count = zip_source_read(source, bytes.data(), bytes.size());
    zip_source_close(source);
    if (count < 0 || static_cast<std::size_t>(count) != bytes.size()) return unwritable(text::message("out of memory"));
    return bytes;
}

}  // namespace

/// The second beginning is that of an archive without entries.
bool isArchive(std::string_view bytes) {
    return bytes.starts_with("PK\x03\x04") || bytes.starts_with("PK\x05\x06");
}

Result<Bytes> readArchive(std::string_view archive, ModelEntry& entry, const Progress& progress) {
    // Before libzip sees them: it would put the names into a table whose hash anybody can foresee.
    if (text::hasCrowdedNames(archive)) {
        return unreadable(text::message(
            "the archive holds thousands of entries whose names were chosen to keep programs busy; do not trust it"));
    }
    ZipError error;
    const SourceHandle source = memorySource(archive, error);
    const ArchiveHandle opened = source ? openArchive(source.get(), ZIP_RDONLY, error) : nullptr;
    if (opened == nullptr) return unreadable(text::message("the archive is damaged: {}; fetch it again", error.text()));
    const Result<zip_stat_t> model = findModel(opened.get(), archive.size());
    if (!model) return model.error();
    entry = {model->name, model->index, model->comp_method, model->mtime};
    return unpack(opened.get(), *model, progress);
}

Result<std::string> writeArchive(std::string_view archive, const ModelEntry& entry,
                                 std::span<const std::string_view> model, const Progress& progress) {
    ZipError error;
    const bool isNew = archive.empty();
    const SourceHandle source = writableSource(archive, error);
    ArchiveHandle opened = source ? openArchive(source.get(), isNew ? ZIP_CREATE | ZIP_TRUNCATE : 0, error) : nullptr;
    if (opened == nullptr) return unwritable(error.text());
    PackingProgress packing{Throttle(progress)};
    for (const std::string_view piece : model) packing.total += piece.size();
    watch(opened.get(), packing);
    if (!putModel(opened.get(), isNew, entry, model)) return unwritable(zip_strerror(opened.get()));
    if (zip_close(opened.get()) != 0) {
        return packing.cancelled ? Error{ErrorKind::CannotWrite, text::message("saving was cancelled")}
                                 : unwritable(zip_strerror(opened.get()));
    }
    (void)opened.release();  // zip_close has freed it
    return contents(source.get());
}

}  // namespace model::step
