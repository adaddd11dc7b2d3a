#include "model/step/disk/Backup.hpp"

#include "model/step/disk/FileHandle.hpp"
#include "model/step/disk/Saving.hpp"
#include "text/Message.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <string_view>
#include <vector>

namespace model::step {

namespace {

namespace fs = std::filesystem;

constexpr int MostOfOneSuffix = 9999;

std::error_code lastError() {
    return {errno, std::generic_category()};
}

/// Names are tried in turn by `make`, which fails with EEXIST where somebody has it.
template <class Make>
std::error_code underFirstFreeName(const fs::path& target, const std::string& suffix, fs::path& path,
                                   const Make& make) {
    for (int number = 1; number <= MostOfOneSuffix; ++number) {
        path = target.native() + suffix + (number == 1 ? "" : "." + std::to_string(number));
        const std::error_code error = make(path);
        if (error != std::errc::file_exists) return error;
    }
    return std::make_error_code(std::errc::file_exists);
}

std::error_code link(const fs::path& target, const fs::path& path) {
    return ::link(target.c_str(), path.c_str()) == 0 ? std::error_code() : lastError();
}

/// Takes the name, so that the copy replaces nobody's file.
std::error_code reserve(const fs::path& path) {
    const FileHandle file(::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600));
    return file ? std::error_code() : lastError();
}

std::error_code copyInto(TemporaryFile& copy, const fs::path& target) {
    const FileHandle file(::open(target.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file) return lastError();
    std::vector<char> buffer(std::size_t{1} << 20U);
    for (;;) {
        const ssize_t count = ::read(file.number(), buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return lastError();
        if (count == 0) return {};
        const std::string_view piece(buffer.data(), static_cast<std::size_t>(count));
        if (const std::error_code error = copy.write({&piece, 1})) return error;
    }
}

std::error_code copy(const fs::path& target, const FileState& old, const fs::path& path) {
    std::unique_ptr<TemporaryFile> file;
    if (const std::error_code error = Disk::real().createTemporary(path, old, file)) return error;
    if (const std::error_code error = copyInto(*file, target)) return error;
    if (const std::error_code error = file->takeOver(old, target)) return error;
    if (const std::error_code error = file->sync()) return error;
    return file->replace(path);
}

bool isSuffix(const std::string& suffix) {
    return !suffix.empty() && suffix.find('/') == std::string::npos;
}

Error cannotKeep(const fs::path& target, const std::string& why) {
    return cannotWrite(target, text::message("it cannot be kept as it was: {}", why));
}

}  // namespace

Result<Backup> Backup::make(const fs::path& name, const std::string& suffix) {
    if (!isSuffix(suffix))
        return cannotKeep(name, text::message("'{}' is no ending of a file's name; write one such as .bak", suffix));
    Backup backup;
    if (const std::error_code error = Disk::real().resolve(name, backup.target_))
        return cannotKeep(name, error.message());
    if (const std::error_code error = Disk::real().state(backup.target_, backup.old_))
        return cannotKeep(name, error.message());
    const fs::path& target = backup.target_;
    if (!backup.old_.exists) return backup;
    if (backup.old_.links == 1) {
        const auto linked =
            underFirstFreeName(target, suffix, backup.path_, [&](const fs::path& path) { return link(target, path); });
        if (!linked) return backup;
    }
    // Also where linking failed: FAT and some network file systems have no second names.
    std::error_code error = underFirstFreeName(target, suffix, backup.path_, reserve);
    if (error) {
        return cannotKeep(
            target, text::message("{}: {}; choose another suffix or place", backup.path_.string(), error.message()));
    }
    error = copy(target, backup.old_, backup.path_);
    if (!error) return backup;
    ::unlink(backup.path_.c_str());
    return cannotKeep(target, backup.path_.string() + ": " + error.message());
}

void Backup::removeUnlessReplaced() const {
    FileState now;
    if (path_.empty() || Disk::real().state(target_, now)) return;
    // Still the old file: what was to be kept has its own name, so the second one is of no use.
    if (now.exists && now.device == old_.device && now.inode == old_.inode) ::unlink(path_.c_str());
}

}  // namespace model::step
