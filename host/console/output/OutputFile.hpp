#pragma once
// A text file that the console writes: complete or not at all.

#include "console/output/Interrupts.hpp"

#include <cstdio>
#include <filesystem>
#include <optional>
#include <string_view>

namespace console {

/// Writes to a temporary file beside the target, which takes its place at commit. A target that is no regular file (a
/// pipe, a device) is written straight away. An interrupt ends the program and leaves the target as it was. Every
/// failure throws Failure.
class OutputFile {
public:
    explicit OutputFile(std::filesystem::path target);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Checks before the work what can be checked then: that the folder exists. Throws Failure.
    static void checkPlace(const std::filesystem::path& target);

    void write(std::string_view text);
    void commit();

private:
    void openTemporary();
    void close();
    [[noreturn]] void fail() const;
    void stopIfInterrupted();

    /// Only where there is a temporary file to be removed. To open a pipe waits for a reader, perhaps for ever.
    std::optional<InterruptGuard> guard_;
    std::filesystem::path target_;
    std::filesystem::path temporary_;  ///< Empty once there is none.
    std::FILE* file_ = nullptr;
};

}  // namespace console
