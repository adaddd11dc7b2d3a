#include "importing/UpdateFile.hpp"

#include "text/Message.hpp"
#include "text/Unicode.hpp"
#include "updatefile/FileKind.hpp"
#include "updatefile/Hints.hpp"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace importing {
namespace {

constexpr std::size_t BlockSize = 1U << 16U;
constexpr std::size_t LongestTable = 1U << 30U;

model::Error notReadable(const std::filesystem::path& path) {
    return cannotRead(path, text::message("{}; check its name and that you may read it", std::strerror(errno)));
}

}  // namespace

model::Error cannotRead(const std::filesystem::path& path, std::string_view what) {
    return {model::ErrorKind::CannotRead, text::message("cannot read the update file {}: {}", path.string(), what)};
}

UpdateFile::UpdateFile(std::filesystem::path path, OpenFile file)
    : path_(std::move(path)), file_(std::move(file)), addOnPath_(path_.string()) {}

model::Result<UpdateFile> UpdateFile::open(const std::filesystem::path& path, bool text) {
    const bool standardInput = path == "-";
    UpdateFile file(path, OpenFile(standardInput ? stdin : std::fopen(path.c_str(), "rb")));
    if (!file.file_) return notReadable(path);
    struct stat status {};
    if (fstat(fileno(file.file_.get()), &status) != 0) return notReadable(path);
    if (S_ISDIR(status.st_mode) && !standardInput)
        return cannotRead(path, text::message("it is a folder; name a file in it"));
    // The add-on opens the file again by its name, and its names are text. So it gets a copy of what cannot be read
    // twice (a pipe) and of a file whose name is not UTF-8.
    if (standardInput || !S_ISREG(status.st_mode) || !text::isWellFormed(std::string_view(file.addOnPath_))) {
        if (const model::Status kept = file.keepCopy(text); !kept) return kept.error();
    }
    return file;
}

model::Status UpdateFile::keepCopy(bool text) {
    auto kept = KeptFile::create();
    if (!kept) return kept.error();
    if (model::Status copied = copy(*kept, text); !copied) return copied;
    if (model::Status finished = kept->finish(); !finished) return finished;
    addOnPath_ = kept->path();
    file_ = kept->release();
    return {};
}

model::Status UpdateFile::copy(KeptFile& target, bool text) {
    std::array<char, BlockSize> block;
    std::size_t count = 0, copied = 0;
    while ((count = std::fread(block.data(), 1, block.size(), file_.get())) > 0) {
        // A device such as /dev/zero has no end, so what it holds is looked at before all of it is copied.
        if (text && copied == 0 && updatefile::detectFileKind({block.data(), count}) == updatefile::FileKind::Binary)
            return cannotRead(path_, updatefile::NoTextFile.text());
        if ((copied += count) > LongestCopy) {
            return cannotRead(
                path_, text::message("more than {} MiB came out of it; save it as a file first", LongestCopy >> 20U));
        }
        if (model::Status written = target.write({block.data(), count}); !written) return written;
    }
    if (std::ferror(file_.get()) != 0) return notReadable(path_);
    return {};
}

model::Result<updatefile::UpdateFileFindings> UpdateFile::scan(const updatefile::UpdateFileScan::Knows& knows,
                                                               const updatefile::UpdateFileScan::Visit& visit) {
    updatefile::UpdateFileScan scan(knows, visit);
    std::array<char, BlockSize> block;
    std::size_t count = 0;
    while ((count = std::fread(block.data(), 1, block.size(), file_.get())) > 0) scan.read({block.data(), count});
    if (std::ferror(file_.get()) != 0) return notReadable(path_);
    return scan.finish();
}

model::Result<std::string> UpdateFile::bytes() {
    std::string bytes;
    std::array<char, BlockSize> block;
    std::size_t count = 0;
    while ((count = std::fread(block.data(), 1, block.size(), file_.get())) > 0) {
        bytes.append(block.data(), count);
        // Looked at in each step: what a pipe or a device gives may never end.
        if (bytes.size() > LongestTable)
            return cannotRead(path_, text::message("it is larger than {} MiB, which no table is", LongestTable >> 20U));
    }
    if (std::ferror(file_.get()) != 0) return notReadable(path_);
    return bytes;
}

}  // namespace importing
