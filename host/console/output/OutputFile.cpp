#include "console/output/OutputFile.hpp"

#include "console/Failure.hpp"
#include "console/output/Messages.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace console {
namespace {

/// What a file made by open would get; mkstemp's are for the owner only.
mode_t newFileMode() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

}  // namespace

OutputFile::OutputFile(std::filesystem::path target) : target_(std::move(target)) {
    std::error_code ignored;
    // A symbolic link stays one: what it points at is replaced.
    if (const auto real = std::filesystem::canonical(target_, ignored); !ignored) target_ = real;
    const auto status = std::filesystem::status(target_, ignored);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        file_ = std::fopen(target_.c_str(), "wb");
    else
        openTemporary();
    if (file_ == nullptr) fail();
}

OutputFile::~OutputFile() {
    close();
}

void OutputFile::checkPlace(const std::filesystem::path& target) {
    std::error_code ignored;
    const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";
    if (!std::filesystem::is_directory(folder, ignored))
        throw Failure(
            fmt::format("cannot write {}: there is no folder {}; make it first, or choose another place with -o",
                        target.string(), folder.string()));
    if (std::filesystem::is_directory(target, ignored))
        throw Failure(fmt::format("cannot write {}: it is a folder; name a file in it", target.string()));
}

void OutputFile::openTemporary() {
    guard_.emplace();
    std::string name = target_.string() + ".XXXXXX";
    const int descriptor = mkstemp(name.data());
    if (descriptor < 0) fail();
    temporary_ = name;
    struct stat old {};
    const mode_t mode = stat(target_.c_str(), &old) == 0 ? old.st_mode & 07777 : newFileMode();
    if (fchmod(descriptor, mode) != 0) {
        ::close(descriptor);
        return;
    }
    file_ = fdopen(descriptor, "wb");
}

void OutputFile::write(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), file_) != text.size()) fail();
    stopIfInterrupted();
}

void OutputFile::commit() {
    if (std::fflush(file_) != 0) fail();
    if (!temporary_.empty() && fsync(fileno(file_)) != 0) fail();
    stopIfInterrupted();
    if (!temporary_.empty() && std::rename(temporary_.c_str(), target_.c_str()) != 0) fail();
    temporary_.clear();
}

void OutputFile::close() {
    if (file_ != nullptr) std::fclose(file_);
    file_ = nullptr;
    if (!temporary_.empty()) unlink(temporary_.c_str());
    temporary_.clear();
}

void OutputFile::fail() const {
    throw Failure(
        fmt::format("cannot write {}: {}; choose another place with -o", target_.string(), std::strerror(errno)));
}

void OutputFile::stopIfInterrupted() {
    if (!InterruptGuard::interrupted()) return;
    close();
    say(fmt::format("interrupted; {} was not written", target_.string()));
    InterruptGuard::dieIfInterrupted();
}

}  // namespace console
