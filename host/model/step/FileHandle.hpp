#pragma once

#include "model/step/Disk.hpp"

#include <sys/stat.h>

#include <utility>

namespace model::step {

/// An open file of the system, closed at the end.
class FileHandle {
public:
    FileHandle() = default;
    explicit FileHandle(int opened) : descriptor(opened) {}
    FileHandle(FileHandle&& other) noexcept : descriptor(std::exchange(other.descriptor, -1)) {}
    FileHandle& operator=(FileHandle&& other) noexcept {
        std::swap(descriptor, other.descriptor);
        return *this;
    }
    ~FileHandle();

    explicit operator bool() const { return descriptor >= 0; }
    int number() const { return descriptor; }

private:
    int descriptor = -1;
};

FileState toFileState(const struct stat& found);

}  // namespace model::step
