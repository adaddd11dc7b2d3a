#include "model/step/disk/FileHandle.hpp"

#include <unistd.h>

namespace model::step {

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
    state.modified = std::int64_t{found.st_mtim.tv_sec} * 1'000'000'000 + found.st_mtim.tv_nsec;
    state.mode = found.st_mode;
    state.owner = found.st_uid;
    state.group = found.st_gid;
    return state;
}

}  // namespace model::step
