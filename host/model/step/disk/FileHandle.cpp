#include "model/step/disk/FileHandle.hpp"

#include <unistd.h>

namespace model::step {

namespace {

/// Seconds would not tell two versions apart that were saved within one.
std::int64_t nanoseconds(const struct timespec& time) {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

}  // namespace

FileHandle::~FileHandle() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

FileState toFileState(const struct stat& found) {
    FileState state;
    state.exists = true;
    state.regular = S_ISREG(found.st_mode);
    state.device = found.st_dev;
    state.inode = found.st_ino;
    state.size = static_cast<std::uint64_t>(found.st_size);
    state.modified = nanoseconds(found.st_mtim);
    state.changed = nanoseconds(found.st_ctim);
    state.mode = found.st_mode;
    state.owner = found.st_uid;
    state.group = found.st_gid;
    state.links = found.st_nlink;
    return state;
}

}  // namespace model::step
