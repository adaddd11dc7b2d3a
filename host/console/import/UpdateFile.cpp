#include "console/import/UpdateFile.hpp"

#include "console/Failure.hpp"
#include "console/output/HostText.hpp"
#include "updatefile/FileKind.hpp"
#include "updatefile/Hints.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace console {
namespace {

constexpr std::size_t BlockSize = 1U << 16U;
constexpr std::size_t LongestTable = 1U << 30U;

[[noreturn]] void fail(const std::filesystem::path& path, std::string_view what) {
    throw Failure(fmt::format("cannot read the update file {}: {}", path.string(), what));
}

[[noreturn]] void failWithError(const std::filesystem::path& path) {
    fail(path, fmt::format("{}; check its name and that you may read it", std::strerror(errno)));
}

[[noreturn]] void failCopying() {
    throw Failure(fmt::format("cannot keep a copy of the update file in {}: {}; make room there, or set TMPDIR",
                              std::filesystem::temp_directory_path().string(), std::strerror(errno)));
}

bool isStandardInput(const std::filesystem::path& path) {
    return path == "-";
}

}  // namespace

UpdateFile::UpdateFile(std::filesystem::path path, bool text) : path_(std::move(path)), addOnPath_(path_.string()) {
    if (isStandardInput(path_)) {
        keepCopy(stdin, text);
        return;
    }
    file_.reset(std::fopen(path_.c_str(), "rb"));
    if (!file_) failWithError(path_);
    struct stat status {};
    if (fstat(fileno(file_.get()), &status) != 0) failWithError(path_);
    if (S_ISDIR(status.st_mode)) fail(path_, "it is a folder; name a file in it");
    // The add-on opens the file again by its name, and its names are text. So it gets a copy of what cannot be read
    // twice (a pipe) and of a file whose name is not UTF-8.
    if (!S_ISREG(status.st_mode) || !isWellFormed(addOnPath_)) keepCopy(file_.get(), text);
}

void UpdateFile::keepCopy(std::FILE* source, bool text) {
    // Not std::tmpfile, which takes no notice of TMPDIR.
    std::string name = (std::filesystem::temp_directory_path() / "modelhost.XXXXXX").string();
    const int descriptor = mkostemp(name.data(), O_CLOEXEC);
    if (descriptor < 0) failCopying();
    unlink(name.c_str());
    File copy(fdopen(descriptor, "w+b"));
    if (!copy) failCopying();
    std::array<char, BlockSize> block;
    std::size_t count = 0, copied = 0;
    while ((count = std::fread(block.data(), 1, block.size(), source)) > 0) {
        // A device such as /dev/zero has no end, so what it holds is looked at before all of it is copied.
        if (text && copied == 0 && updatefile::detectFileKind({block.data(), count}) == updatefile::FileKind::Binary)
            fail(path_, updatefile::NoTextFile);
        if ((copied += count) > LongestCopy)
            fail(path_, fmt::format("more than {} MiB came out of it; save it as a file first", LongestCopy >> 20U));
        if (std::fwrite(block.data(), 1, count, copy.get()) != count) failCopying();
    }
    if (std::ferror(source) != 0) failWithError(path_);
    if (std::fflush(copy.get()) != 0) failCopying();
    std::rewind(copy.get());
    addOnPath_ = fmt::format("/proc/self/fd/{}", fileno(copy.get()));
    file_ = std::move(copy);
}

updatefile::UpdateFileFindings UpdateFile::scan(const updatefile::UpdateFileScan::Knows& knows,
                                                const updatefile::UpdateFileScan::Visit& visit) {
    updatefile::UpdateFileScan scan(knows, visit);
    std::array<char, BlockSize> block;
    std::size_t count = 0;
    while ((count = std::fread(block.data(), 1, block.size(), file_.get())) > 0) scan.read({block.data(), count});
    if (std::ferror(file_.get()) != 0) failWithError(path_);
    updatefile::UpdateFileFindings findings = scan.finish();
    if (const auto reason = updatefile::uselessBecause(findings)) fail(path_, *reason);
    return findings;
}

std::string UpdateFile::bytes() {
    std::string bytes;
    std::array<char, BlockSize> block;
    std::size_t count = 0;
    while ((count = std::fread(block.data(), 1, block.size(), file_.get())) > 0) {
        bytes.append(block.data(), count);
        if (bytes.size() > LongestTable)
            fail(path_, fmt::format("it is larger than {} MiB, which no table is", LongestTable >> 20U));
    }
    if (std::ferror(file_.get()) != 0) failWithError(path_);
    return bytes;
}

}  // namespace console
