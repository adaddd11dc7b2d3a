#include "model/step/disk/Disk.hpp"

#include "model/step/disk/ContentSum.hpp"
#include "model/step/disk/FileHandle.hpp"
#include "model/step/disk/FileLock.hpp"
#include "model/step/disk/TemporaryNames.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <string>
#include <utility>
#include <vector>

namespace model::step {

namespace {

namespace fs = std::filesystem;

std::error_code lastError() {
    return {errno, std::generic_category()};
}
std::error_code outcome(int result) {
    return result == 0 ? std::error_code() : lastError();
}

/// Access lists among them. What cannot be copied is left out: not every file system has every kind.
void copyExtendedAttributes(const fs::path& from, int to) {
    const std::string path = from.string();
    std::vector<char> names(static_cast<std::size_t>(std::max<ssize_t>(0, ::listxattr(path.c_str(), nullptr, 0))));
    if (names.empty() || ::listxattr(path.c_str(), names.data(), names.size()) != static_cast<ssize_t>(names.size()))
        return;
    for (std::size_t at = 0; at < names.size(); at += std::string_view(names.data() + at).size() + 1) {
        const char* name = names.data() + at;
        std::vector<char> value(
            static_cast<std::size_t>(std::max<ssize_t>(0, ::getxattr(path.c_str(), name, nullptr, 0))));
        const ssize_t size = ::getxattr(path.c_str(), name, value.data(), value.size());
        // Another program may have made it longer meanwhile.
        if (size >= 0 && static_cast<std::size_t>(size) <= value.size())
            ::fsetxattr(to, name, value.data(), static_cast<std::size_t>(size), 0);
    }
}

class RealTemporaryFile final : public TemporaryFile {
public:
    ~RealTemporaryFile() override {
        if (!name_.empty()) ::unlink(name_.c_str());
    }

    /// Without a name where the file system can do that: then not even a crash leaves a file behind. Network file
    /// systems and FAT cannot.
    std::error_code create(const fs::path& target, const FileState& old) {
        // Nobody else may read the new bytes before takeOver() has given them the old file's owner and rights.
        const mode_t mode = old.exists ? 0600 : 0666;
        handle_ = FileHandle(::open(target.parent_path().c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, mode));
        if (!handle_) {
            // The answers of file systems and kernels that know no files without a name.
            if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL && errno != ENOENT) return lastError();
            std::string path = temporaryName(target);
            handle_ = FileHandle(::open(path.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, mode));
            if (!handle_) return lastError();
            name_ = std::move(path);
        }
        (void)tryLock(handle_);  // Whoever finds the name and no lock takes it for one left behind.
        return {};
    }

    std::error_code write(std::span<const std::string_view> pieces) override {
        std::vector<iovec> vectors;
        for (const std::string_view piece : pieces)
            vectors.push_back({const_cast<char*>(piece.data()), piece.size()});  // writev only reads
        std::size_t done = 0;
        while (done < vectors.size()) {
            const int count = static_cast<int>(std::min<std::size_t>(vectors.size() - done, IOV_MAX));
            const ssize_t written = ::writev(handle_.number(), vectors.data() + done, count);
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) return lastError();
            advance(vectors, done, static_cast<std::size_t>(written));
        }
        return {};
    }

    std::error_code takeOver(const FileState& old, const fs::path& oldPath) override {
        struct stat mine {};
        if (::fstat(handle_.number(), &mine) != 0) return lastError();
        // Not everyone may give files away; the mode is set last, since a new owner takes bits of it.
        mode_t mode = old.mode & 07777U;
        if ((mine.st_uid != old.owner || mine.st_gid != old.group) &&
            ::fchown(handle_.number(), old.owner, old.group) != 0 && mine.st_gid != old.group &&
            ::fchown(handle_.number(), static_cast<uid_t>(-1), old.group) != 0)
            mode = withoutGroup(mode);
        copyExtendedAttributes(oldPath, handle_.number());
        return outcome(::fchmod(handle_.number(), mode));
    }

    std::error_code sync() override { return outcome(::fsync(handle_.number())); }

    std::error_code replace(const fs::path& target) override {
        // A link replaces no file, so a file without a name gets one before the rename.
        if (name_.empty()) {
            std::string path = temporaryName(target);
            const std::string mine = "/proc/self/fd/" + std::to_string(handle_.number());
            if (::linkat(AT_FDCWD, mine.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) != 0) return lastError();
            name_ = std::move(path);  // A copy may fail for want of memory, and the file would stay.
        }
        if (::rename(name_.c_str(), target.c_str()) != 0) return lastError();
        name_.clear();
        unlock(handle_);  // It is the model now, whose lock is taken by whoever edits it.
        return {};
    }

private:
    /// The group is now another one: what the old one might do beyond everybody was not meant for it.
    static mode_t withoutGroup(mode_t mode) { return (mode & ~mode_t{070}) | (mode & 07U) << 3U; }

    static void advance(std::vector<iovec>& vectors, std::size_t& done, std::size_t written) {
        while (done < vectors.size() && written >= vectors[done].iov_len) written -= vectors[done++].iov_len;
        if (written == 0) return;
        vectors[done].iov_base = static_cast<char*>(vectors[done].iov_base) + written;
        vectors[done].iov_len -= written;
    }

    FileHandle handle_;
    std::string name_;  ///< Empty while it has none.
};

class RealDisk final : public Disk {
public:
    std::error_code resolve(const fs::path& path, fs::path& target) override {
        constexpr int MostLinks = 40;
        std::error_code error;
        target = fs::absolute(path, error);
        for (int i = 0; fs::is_symlink(fs::symlink_status(target, error)); ++i) {
            if (i == MostLinks) return std::make_error_code(std::errc::too_many_symbolic_link_levels);
            target = target.parent_path() / fs::read_symlink(target, error);
        }
        // One name for one file: the file need not exist, its folder may be reached by several ways.
        const fs::path folder = fs::canonical(target.parent_path(), error);
        if (error) return error;
        target = folder / target.filename();
        return {};
    }

    std::error_code state(const fs::path& path, FileState& state) override {
        struct stat found {};
        state = {};
        // That there is no such file is an answer, not an error: a model is saved under a new name.
        if (::stat(path.c_str(), &found) != 0) return errno == ENOENT ? std::error_code() : lastError();
        state = toFileState(found);
        state.writable = ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
        return {};
    }

    std::error_code sum(const fs::path& path, std::uint64_t& sum) override {
        const FileHandle file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
        if (!file) return lastError();
        std::vector<char> buffer(std::size_t{1} << 20U);
        ContentSum content;
        for (;;) {
            const ssize_t count = ::read(file.number(), buffer.data(), buffer.size());
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) return lastError();
            if (count == 0) break;
            content.add({buffer.data(), static_cast<std::size_t>(count)});
        }
        sum = content.result();
        return {};
    }

    std::error_code createTemporary(const fs::path& target, const FileState& old,
                                    std::unique_ptr<TemporaryFile>& file) override {
        removeLeftOvers(target);  // First of all: they may be what fills the disk.
        auto created = std::make_unique<RealTemporaryFile>();
        const std::error_code error = created->create(target, old);
        if (!error) file = std::move(created);
        return error;
    }

    std::error_code syncFolder(const fs::path& folder) override {
        const FileHandle handle(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!handle) return lastError();
        // Some network file systems cannot sync folders.
        if (::fsync(handle.number()) != 0 && errno != EINVAL && errno != ENOTSUP) return lastError();
        return {};
    }
};

}  // namespace

Disk& Disk::real() {
    static RealDisk disk;
    return disk;
}

}  // namespace model::step
