#pragma once

#include "model/step/disk/Disk.hpp"

#include <sys/stat.h>

#include <utility>

namespace model::step {

/// An open file of the system, closed at the end.
class FileHandle {
public:
    FileHandle() = default;
    explicit FileHandle(int opened) : descriptor_(opened) {}
    FileHandle(FileHandle&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    FileHandle& operator=(FileHandle&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    ~FileHandle();

    explicit operator bool() const { return descriptor_ >= 0; }
    int number() const { return descriptor_; }

private:
    int descriptor_ = -1;
};

/// What `stat` says; `writable` it does not.
FileState toFileState(const struct stat& found);

}  // namespace model::step
