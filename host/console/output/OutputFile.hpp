#pragma once
// A text file that the console writes: complete or not at all.

#include "console/output/Interrupts.hpp"
#include "model/step/disk/Disk.hpp"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
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
    void handOver();
    void close();
    void check(const std::error_code& error) const;
    void stopIfInterrupted();

    /// Only where there is a temporary file to be removed. To open a pipe waits for a reader, perhaps for ever.
    std::optional<InterruptGuard> guard_;
    std::filesystem::path target_;  ///< As the user named it.
    std::filesystem::path place_;   ///< Where that leads: a symbolic link stays one.
    model::step::FileState old_;
    std::unique_ptr<model::step::TemporaryFile> temporary_;  ///< Null for a device, and once it has the target's name.
    std::string kept_;                                       ///< What the temporary file has not been given yet.
    std::FILE* device_ = nullptr;                            ///< A pipe or a device.
};

}  // namespace console
