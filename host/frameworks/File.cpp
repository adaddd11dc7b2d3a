#include "File.hpp"

#include "FrontEnd.hpp"
#include "NativePaths.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <utility>

namespace {

/// Never destroyed: an add-on that is unloaded when the program ends may still have a file open.
frontend::FileErrorSink& fileErrorSink() {
    static frontend::FileErrorSink& sink = *new frontend::FileErrorSink;
    return sink;
}

void noteError(const std::string& path, int error) {
    if (fileErrorSink()) fileErrorSink()(path, error);
}

}  // namespace

namespace IO {

namespace {

constexpr USize BufferSize = 64 * 1024;

/// Repeats a system call for as long as a signal interrupts it.
template <class Call>
auto retried(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

bool isFolder(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

File::File(const Location& place, OnNotFound) : location_(place) {}

File::~File() {
    Close();
}

GSErrCode File::Open(OpenMode, OnAccessDenied) {
    Close();
    if (location_.GetStatus() != Location::StatusOK) return ErrNotFound;
    const std::string path = frameworks::nativePath(location_.GetPath().ToCStr());
    const int opened = retried([&path] { return open(path.c_str(), O_RDONLY | O_CLOEXEC); });
    if (opened < 0) {
        const int error = errno;
        noteError(path, error);
        return error == ENOENT || error == ENOTDIR ? ErrNotFound : ErrAccessDenied;
    }
    if (isFolder(opened)) {
        // A folder opens well enough and fails on the first read only; the caller is told now.
        close(opened);
        noteError(path, EISDIR);
        return ErrAccessDenied;
    }
    descriptor_ = opened;
    buffer_ = new char[BufferSize];
    begin_ = end_ = 0;
    return NoError;
}

GSErrCode File::ReadBin(char* target, USize count, USize* readCount) {
    if (readCount != nullptr) *readCount = 0;
    if (descriptor_ < 0) return ErrNotOpen;
    USize done = 0;
    GSErrCode result = NoError;
    while (done < count) {
        if (begin_ == end_) {
            const ssize_t got = retried([this] { return read(descriptor_, buffer_, BufferSize); });
            if (got < 0) noteError(frameworks::nativePath(location_.GetPath().ToCStr()), errno);
            begin_ = 0;
            end_ = got > 0 ? static_cast<USize>(got) : 0;
            if (got <= 0) {
                result = got == 0 ? ErrEndOfFile : ErrRead;
                break;
            }
        }
        const USize part = std::min(count - done, end_ - begin_);
        std::memcpy(target + done, buffer_ + begin_, part);
        begin_ += part;
        done += part;
    }
    if (readCount != nullptr) *readCount = done;
    return result;
}

GSErrCode File::Close() {
    if (descriptor_ < 0) return ErrNotOpen;
    close(descriptor_);  // Nothing was written, so its result says nothing that matters.
    descriptor_ = -1;
    delete[] buffer_;
    buffer_ = nullptr;
    return NoError;
}

}  // namespace IO

frontend::FileErrorSink frontend::setFileErrorSink(FileErrorSink sink) {
    return std::exchange(fileErrorSink(), std::move(sink));
}
