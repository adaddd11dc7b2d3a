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
    bool exists = false;  ///< The rest says nothing where this is false.
    bool regular = false;
    bool writable = false;  ///< By us.
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;     ///< Bytes.
    std::int64_t modified = 0;  ///< Of the content, nanoseconds since 1970; any program may set it.
    std::int64_t changed = 0;   ///< Of the file in any way, its rights and names included; nobody can set it.
    std::uint32_t mode = 0;
    std::uint32_t owner = 0;
    std::uint32_t group = 0;
    std::uint64_t links = 0;  ///< Names that the file has.

    /// No other program has written, replaced or touched the file between the two.
    bool sameVersion(const FileState& other) const { return sameButTouched(other) && changed == other.changed; }
    /// Whether it looks like the same version, but for something that need not be its content: `chmod` and programs
    /// that keep notes in extended attributes do this to a file, but so does writing it and setting the time back.
    bool sameButTouched(const FileState& other) const {
        return exists == other.exists && device == other.device && inode == other.inode && size == other.size &&
               modified == other.modified;
    }
};

/// A file without a name that anyone would look for. Gone when destroyed before replace; a crash leaves at most one
/// that the next saver of the same target removes.
class TemporaryFile {
public:
    virtual ~TemporaryFile() = default;
    virtual std::error_code write(std::span<const std::string_view> pieces) = 0;
    /// Mode bits, extended attributes and, where allowed, the owner and group of the file it is to replace. A group
    /// that cannot be kept is not replaced by one that may do more than everybody.
    virtual std::error_code takeOver(const FileState& old, const std::filesystem::path& oldPath) = 0;
    virtual std::error_code sync() = 0;
    /// Gives it the name of `target`, in one step with taking the name from the old file. After an error the old file
    /// still has it. Throws nothing once it has the name.
    virtual std::error_code replace(const std::filesystem::path& target) = 0;
};

class Disk {
public:
    virtual ~Disk() = default;
    /// Where `path` leads when symbolic links at its end are followed; the file itself need not exist.
    virtual std::error_code resolve(const std::filesystem::path& path, std::filesystem::path& target) = 0;
    /// A missing file is no error.
    virtual std::error_code state(const std::filesystem::path& path, FileState& state) = 0;
    /// The ContentSum of the file's bytes.
    virtual std::error_code sum(const std::filesystem::path& path, std::uint64_t& sum) = 0;
    /// In the folder of `target`, since a file cannot be renamed into another file system.
    /// @param old  the file that it is to replace: until the new one has its rights, nobody else may read it.
    virtual std::error_code createTemporary(const std::filesystem::path& target, const FileState& old,
                                            std::unique_ptr<TemporaryFile>& file) = 0;
    virtual std::error_code syncFolder(const std::filesystem::path& folder) = 0;

    /// The one of this machine.
    static Disk& real();
};

}  // namespace model::step
