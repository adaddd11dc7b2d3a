#include "model/step/disk/FileLock.hpp"

#include "text/Message.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <sstream>

namespace model::step {

/// flock and not fcntl: a lock of fcntl is the whole process's, and gone as soon as any descriptor of the file is
/// closed. Here the file is opened and closed again to compare its bytes before a save.
LockResult tryLock(const FileHandle& file) {
    if (::flock(file.number(), LOCK_EX | LOCK_NB) == 0) return LockResult::Taken;
    return errno == EWOULDBLOCK ? LockResult::HeldByOther : LockResult::Unsupported;
}

void unlock(const FileHandle& file) {
    ::flock(file.number(), LOCK_UN);
}

std::string holderOfLock(const FileState& file) {
    // "1: FLOCK  ADVISORY  WRITE 1234 08:01:5678 0 EOF". The device is left out of the comparison: on layered file
    // systems it is not the one that stat tells.
    std::ifstream locks("/proc/locks");
    const std::string inode = ":" + std::to_string(file.inode);
    for (std::string line; std::getline(locks, line);) {
        std::istringstream fields(line);
        std::string number, kind, advice, access, process, where;
        if (!(fields >> number >> kind >> advice >> access >> process >> where)) continue;
        if (kind != "FLOCK" || !where.ends_with(inode)) continue;
        std::string name;
        std::ifstream("/proc/" + process + "/comm") >> name;
        if (process == std::to_string(::getpid())) return text::message("this program itself");
        const std::string holder = text::message("process {}", process);
        return name.empty() ? holder : name.append(" (").append(holder).append(")");
    }
    return text::message("another program");
}

FileHandle lockFile(const std::filesystem::path& path, std::string& holder) {
    holder.clear();
    FileHandle file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file) return file;
    const LockResult result = tryLock(file);
    if (result == LockResult::Taken) return file;
    struct stat found {};
    if (result == LockResult::HeldByOther) {
        holder =
            ::fstat(file.number(), &found) == 0 ? holderOfLock(toFileState(found)) : text::message("another program");
    }
    return {};
}

}  // namespace model::step
