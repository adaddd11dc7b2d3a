#pragma once
// What saving needs of the file system. One narrow interface, so that a disk that is full or fails at any step can be
// tried out.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string_view>
#include <system_error>

namespace model::step {

/// What tells one version of a file from another, and what a new version takes over.
struct FileState {
    bool exists = false;
    bool regular = false;
    bool writable = false;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;
    std::int64_t modified = 0;  ///< Nanoseconds.
    std::uint32_t mode = 0;
    std::uint32_t owner = 0;
    std::uint32_t group = 0;

    /// No other program has written or replaced the file between the two.
    bool sameVersion(const FileState& other) const {
        return exists == other.exists && device == other.device && inode == other.inode && size == other.size &&
               modified == other.modified;
    }
};

/// A file without a name that anyone would look for. Gone when destroyed before replace.
class TemporaryFile {
public:
    virtual ~TemporaryFile() = default;
    virtual std::error_code write(std::span<const std::string_view> pieces) = 0;
    /// Mode bits, extended attributes and, where allowed, the owner of the file it is to replace.
    virtual std::error_code takeOver(const FileState& old, const std::filesystem::path& oldPath) = 0;
    virtual std::error_code sync() = 0;
    /// Gives it the name of `target`, in one step with taking the name from the old file.
    virtual std::error_code replace(const std::filesystem::path& target) = 0;
};

class Disk {
public:
    virtual ~Disk() = default;
    /// Where `path` leads when symbolic links at its end are followed; the file itself need not exist.
    virtual std::error_code resolve(const std::filesystem::path& path, std::filesystem::path& target) = 0;
    /// A missing file is no error.
    virtual std::error_code state(const std::filesystem::path& path, FileState& state) = 0;
    /// In the folder of `target`, since a file cannot be renamed into another file system.
    virtual std::error_code createTemporary(const std::filesystem::path& target,
                                            std::unique_ptr<TemporaryFile>& file) = 0;
    virtual std::error_code syncFolder(const std::filesystem::path& folder) = 0;

    static Disk& real();
};

}  // namespace model::step
