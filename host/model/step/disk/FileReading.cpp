#include "model/step/disk/FileReading.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <new>
#include <system_error>

namespace model::step {

namespace {

constexpr std::size_t Stretch = std::size_t{8} << 20U;

std::string lastError() {
    return std::generic_category().message(errno);
}

/// Reads at most `wanted` bytes: fewer where the file has become shorter.
Status fill(const FileHandle& handle, char* to, std::size_t wanted, std::size_t& done, Throttle& progress) {
    while (done < wanted) {
        const ssize_t count = ::read(handle.number(), to + done, std::min(Stretch, wanted - done));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return Error{ErrorKind::CannotRead, lastError()};
        if (count == 0) break;
        done += static_cast<std::size_t>(count);
        if (!progress.report(done / 2, wanted)) return Error{ErrorKind::CannotRead, "opening was cancelled"};
    }
    return {};
}

Status stateOf(const FileHandle& handle, FileState& state) {
    struct stat found {};
    if (::fstat(handle.number(), &found) != 0) return Error{ErrorKind::CannotRead, lastError()};
    state = toFileState(found);
    return {};
}

Status read(ReadFile& file, const Progress& progress) {
    if (Status known = stateOf(file.handle, file.state); !known) return known;
    if (!file.state.regular)
        return Error{ErrorKind::CannotRead, "it is a folder or a device, not a file; choose an .ifc file"};
    file.bytes = Bytes(file.state.size);
    std::size_t done = 0;
    Throttle throttle(progress);
    if (Status filled = fill(file.handle, file.bytes.memory.data(), file.bytes.size, done, throttle); !filled)
        return filled;
    FileState after;
    if (Status known = stateOf(file.handle, after); !known) return known;
    if (done != file.bytes.size || !after.sameVersion(file.state))
        return Error{ErrorKind::CannotRead, "another program is writing it just now; open it again when that is done"};
    return {};
}

}  // namespace

Error cannotRead(const std::filesystem::path& path, const std::string& what) {
    return {ErrorKind::CannotRead, path.string() + ": " + what};
}

Bytes::Bytes(std::uint64_t length) : size(static_cast<std::size_t>(length)) {
    // What a file says of its length may be anything; with the slack added it must not wrap around to little.
    if (length > std::numeric_limits<std::size_t>::max() - SlackBytes) throw std::bad_alloc();
    memory = Region(size + SlackBytes);
}

Result<ReadFile> readFile(const std::filesystem::path& path, const Progress& progress) {
    ReadFile file;
    // Without O_NONBLOCK a named pipe would keep us waiting for a writer.
    file.handle = FileHandle(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.handle) return cannotRead(path, lastError() + "; check the name and the rights");
    const Status done = read(file, progress);
    if (!done) return cannotRead(path, done.error().message);
    return file;
}

}  // namespace model::step
