#pragma once
// The update file as the console opens it. What is no update file is refused here: the add-on would only show an empty
// list.

#include "updatefile/UpdateFileScan.hpp"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

namespace console {

class UpdateFile {
public:
    /// @param path  "-" is standard input. Throws Failure where the file cannot be read.
    /// @param text  false where the file may hold anything, as a workbook does.
    explicit UpdateFile(std::filesystem::path path, bool text = true);

    /// How much may come out of a pipe or a device; four times what a full list can show.
    static constexpr std::size_t LongestCopy = 256U << 20U;

    /// For messages.
    std::string name() const { return path_.string(); }

    /// Reads it whole. Throws Failure where that fails, or where the file is empty or no text.
    updatefile::UpdateFileFindings scan(const updatefile::UpdateFileScan::Knows& knows,
                                        const updatefile::UpdateFileScan::Visit& visit);

    /// All of it, for who reads it as something else. Throws Failure.
    std::string bytes();

    /// The path under which the add-on can open it. Valid as long as this object lives.
    const std::string& pathForAddOn() const { return addOnPath_; }

private:
    struct Close {
        void operator()(std::FILE* open) const { std::fclose(open); }
    };
    using File = std::unique_ptr<std::FILE, Close>;

    void keepCopy(std::FILE* source, bool text);

    std::filesystem::path path_;
    File file_;
    std::string addOnPath_;
};

}  // namespace console
