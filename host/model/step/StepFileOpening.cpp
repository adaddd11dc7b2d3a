#include "model/step/StepFileContent.hpp"
#include "model/step/disk/Disk.hpp"
#include "model/step/disk/FileLock.hpp"
#include "model/step/reading/Indexer.hpp"
#include "text/Message.hpp"

#include <cstring>
#include <new>

namespace model::step {

namespace {

namespace fs = std::filesystem;

/// The model's bytes, unpacked where they came in an archive.
Status unpack(ReadFile& file, Bytes& archive, ModelEntry& entry, const Progress& progress) {
    if (!isArchive(file.bytes.text())) return {};
    Result<Bytes> model = readArchive(file.bytes.text(), entry, progress);
    if (!model) return model.error();
    archive = std::move(file.bytes);
    file.bytes = std::move(*model);
    return {};
}

}  // namespace

StepFile::StepFile(std::unique_ptr<Content> parts) : content_(std::move(parts)) {}
StepFile::~StepFile() = default;

Result<std::unique_ptr<StepFile>> StepFile::open(const fs::path& path, const OpenOptions& options) try {
    // Behind all links: a save renames a new file over the name, and would put it in the place of a link.
    fs::path target;
    if (const std::error_code error = Disk::real().resolve(path, target))
        return cannotRead(path, text::message("{}; check the name and the rights", error.message()));
    Result<ReadFile> file = readFile(target, options.progress);
    if (!file) return file.error();
    Bytes archive;
    ModelEntry entry;
    if (const Status unpacked = unpack(*file, archive, entry, options.progress); !unpacked)
        return cannotRead(path, unpacked.error().message);
    auto content = std::make_unique<Content>(std::move(file->bytes));
    if (const Status indexed = indexFile(content->index, options.progress); !indexed)
        return cannotRead(path, indexed.error().message);
    content->path = content->lockedPath = target;
    content->archive = std::move(archive);
    content->entry = std::move(entry);
    // As the open descriptor told it: under the name there may be another file by now.
    content->versions[target].state = file->state;
    if (options.lock) {
        // Not by the name either: the lock is to be on the version that was read.
        const LockResult locked = tryLock(file->handle);
        if (locked == LockResult::Taken) content->lock = std::move(file->handle);
        if (locked == LockResult::HeldByOther) content->lockedBy = holderOfLock(file->state);
    }
    return std::unique_ptr<StepFile>(new StepFile(std::move(content)));
} catch (const std::bad_alloc&) {
    return cannotRead(path, text::message("there is not enough memory to open it; close other programs and try again"));
}

void StepFile::takeLock() {
    if (!content_->lock && !content_->lockedPath.empty())
        content_->lock = lockFile(content_->lockedPath, content_->lockedBy);
}

Result<std::unique_ptr<StepFile>> StepFile::fromBytes(std::string text) try {
    Bytes bytes(text.size());
    std::memcpy(bytes.memory.data(), text.data(), text.size());
    auto content = std::make_unique<Content>(std::move(bytes));
    if (const Status indexed = indexFile(content->index, {}); !indexed) return indexed.error();
    return std::unique_ptr<StepFile>(new StepFile(std::move(content)));
} catch (const std::bad_alloc&) {
    return Error{ErrorKind::CannotRead, text::message("there is not enough memory to open the model")};
}

}  // namespace model::step
