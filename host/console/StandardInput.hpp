#pragma once
// A model that comes by standard input. It is read more than once, so it is kept in a file meanwhile.

#include <cstdint>
#include <filesystem>

namespace console {

class StandardInput {
public:
    /// Reads all of it. Throws Failure where that fails, or it is neither text nor an archive.
    StandardInput();
    /// Removes the file.
    ~StandardInput();
    StandardInput(const StandardInput&) = delete;
    StandardInput& operator=(const StandardInput&) = delete;

    const std::filesystem::path& path() const { return path_; }

    /// How messages call it.
    static constexpr const char* Name = "standard input";
    /// No machine that this is likely to run on opens a larger one.
    static constexpr std::uintmax_t Longest = std::uintmax_t{16} << 30U;

private:
    void copy(int file);

    std::filesystem::path path_;
};

}  // namespace console
