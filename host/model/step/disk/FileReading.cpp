#include "model/step/disk/FileReading.hpp"

#include "model/base/HelperThreads.hpp"
#include "text/Message.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <limits>
#include <new>
#include <system_error>

namespace model::step {

namespace {

std::string lastError() {
    return std::generic_category().message(errno);
}

/// Reads a file in stretches, with the help of other threads where it is long: half of the time goes into clearing the
/// memory that it is read into, which each does for its own part.
class Filling {
public:
    Filling(const FileHandle& handle, char* to, std::size_t wanted, const Progress& progress)
        : file_(handle.number()), to_(to), wanted_(wanted), progress_(progress) {}

    /// @return how many bytes there were: fewer than wanted where the file has become shorter.
    Result<std::size_t> run() {
        HelperThreads helpers;
        bool cancelled = false;
        if (wanted_ >= WorthHelping) helpers.start(spareCores(), [this] { readStretches(); });
        while (readStretch()) {
            // The other half is indexing.
            cancelled = cancelled || !progress_.report(done_ / 2, wanted_);
            if (cancelled) stopped_ = true;
        }
        helpers.join();
        if (error_ != 0) return Error{ErrorKind::CannotRead, std::generic_category().message(error_)};
        if (cancelled) return Error{ErrorKind::CannotRead, text::message("opening was cancelled")};
        return done_.load();
    }

private:
    static constexpr std::size_t Stretch = std::size_t{4} << 20U;
    static constexpr std::size_t WorthHelping = 4 * Stretch;

    void readStretches() {
        while (readStretch()) {
        }
    }

    /// The next one that nobody has begun. @return false where there is none, or no use in it.
    bool readStretch() {
        const std::size_t begin = next_.fetch_add(Stretch);
        if (stopped_ || begin >= wanted_) return false;
        const std::size_t end = begin + std::min(Stretch, wanted_ - begin);
        for (std::size_t at = begin; at < end;) {
            const ssize_t count = ::pread(file_, to_ + at, end - at, static_cast<off_t>(at));
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) error_ = errno;
            if (count <= 0) {
                stopped_ = true;
                return false;
            }
            at += static_cast<std::size_t>(count);
            done_ += static_cast<std::size_t>(count);
        }
        return true;
    }

    const int file_;
    char* const to_;
    const std::size_t wanted_;
    Throttle progress_;
    std::atomic<std::size_t> next_ = 0, done_ = 0;
    std::atomic<bool> stopped_ = false;
    std::atomic<int> error_ = 0;  ///< As errno says it.
};

Status stateOf(const FileHandle& handle, FileState& state) {
    struct stat found {};
    if (::fstat(handle.number(), &found) != 0) return Error{ErrorKind::CannotRead, lastError()};
    state = toFileState(found);
    return {};
}

Status read(ReadFile& file, const Progress& progress) {
    if (Status known = stateOf(file.handle, file.state); !known) return known;
    if (!file.state.regular) {
        return Error{ErrorKind::CannotRead,
                     text::message("it is a folder or a device, not a file; choose an .ifc file")};
    }
    file.bytes = Bytes(file.state.size);
    const Result<std::size_t> done = Filling(file.handle, file.bytes.memory.data(), file.bytes.size, progress).run();
    if (!done) return done.error();
    FileState after;
    if (Status known = stateOf(file.handle, after); !known) return known;
    if (*done != file.bytes.size || !after.sameVersion(file.state)) {
        return Error{ErrorKind::CannotRead,
                     text::message("another program is writing it just now; open it again when that is done")};
    }
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
    if (!file.handle) return cannotRead(path, text::message("{}; check the name and the rights", lastError()));
    const Status done = read(file, progress);
    if (!done) return cannotRead(path, done.error().message);
    return file;
}

}  // namespace model::step
