#pragma once
// The file as it was before a save replaced it, kept under a name of its own beside it.

#include "model/base/Result.hpp"
#include "model/step/disk/Disk.hpp"

#include <filesystem>
#include <string>

namespace model::step {

/// A second name for the old version. A copy where the file system has one name for each file, or others have names for
/// this one: a program that writes into the file by another name would change the backup, too.
class Backup {
public:
    /// "house.ifc.bak" for the suffix ".bak"; where that is taken, "house.ifc.bak.2" and so on: nobody's file is
    /// replaced.
    /// @param name  of the file, links followed. One that is not there has nothing to be kept: path() is empty.
    /// @return ErrorKind::CannotWrite, also for a suffix that is none.
    static Result<Backup> make(const std::filesystem::path& name, const std::string& suffix);

    const std::filesystem::path& path() const { return path_; }
    /// After a save that failed: removes it unless the file has been replaced all the same.
    void removeUnlessReplaced() const;

private:
    std::filesystem::path target_;
    std::filesystem::path path_;
    FileState old_;
};

}  // namespace model::step
