#pragma once
// What comes by standard input and is read more than once is kept in a file meanwhile.

#include <cstdint>
#include <filesystem>

namespace console {

class StandardInput {
public:
    enum class Holds : std::uint8_t { AModel, Anything };

    /// Reads all of it. Throws Failure where that fails, or it is to be a model and is neither text nor an archive.
    explicit StandardInput(Holds what = Holds::AModel);
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
    static void copy(int file, Holds what);

    std::filesystem::path path_;
};

}  // namespace console
