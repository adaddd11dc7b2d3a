#pragma once
// Files of a test: a folder of its own, gone with the test.

#include <filesystem>
#include <string>
#include <string_view>

namespace testing_support {

class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return folder_; }
    /// Writes a file with exactly these bytes. @return its path.
    std::filesystem::path write(std::string_view name, std::string_view bytes) const;

private:
    std::filesystem::path folder_;
};

/// The whole content of a file; fails the test where it cannot be read.
std::string bytesOf(const std::filesystem::path& file);

}  // namespace testing_support
