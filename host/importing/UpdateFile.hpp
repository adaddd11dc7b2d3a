#pragma once
// A file of updates as the host opens it: to look at it before the add-on does, and under a path that the add-on can
// open.

#include "importing/KeptFile.hpp"
#include "model/base/Result.hpp"
#include "updatefile/UpdateFileScan.hpp"

#include <filesystem>
#include <string>

namespace importing {

class UpdateFile {
public:
    /// @param path  "-" is standard input.
    /// @param text  false where the file may hold anything, as a workbook does.
    /// ErrorKind::CannotRead where it cannot be opened, or where it is a pipe or device that gives no text or too much.
    static model::Result<UpdateFile> open(const std::filesystem::path& path, bool text);

    /// How much may come out of a pipe or a device; four times what a full list can show.
    static constexpr std::size_t LongestCopy = 256U << 20U;

    /// Reads it whole.
    model::Result<updatefile::UpdateFileFindings> scan(const updatefile::UpdateFileScan::Knows& knows,
                                                       const updatefile::UpdateFileScan::Visit& visit);

    /// All of it, for who reads it as something else.
    model::Result<std::string> bytes();

    /// The path under which the add-on can open it. Valid as long as this object lives.
    const std::string& pathForAddOn() const { return addOnPath_; }

private:
    UpdateFile(std::filesystem::path path, OpenFile file);
    model::Status keepCopy(bool text);
    model::Status copy(KeptFile& target, bool text);

    std::filesystem::path path_;
    OpenFile file_;
    std::string addOnPath_;
};

/// Why it cannot be read: "cannot read the update file FILE: WHAT".
model::Error cannotRead(const std::filesystem::path& path, std::string_view what);

}  // namespace importing
