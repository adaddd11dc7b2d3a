#include "support/TempFolder.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace testing_support {

TempFolder::TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "modelhost-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder: " + pattern);
    folder_ = pattern;
}

TempFolder::~TempFolder() {
    std::error_code ignored;  // A folder left behind is no reason to end a test program.
    std::filesystem::remove_all(folder_, ignored);
}

std::filesystem::path TempFolder::write(std::string_view name, std::string_view bytes) const {
    std::filesystem::path file = folder_ / name;
    std::ofstream stream(file, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) throw std::runtime_error("cannot write " + file.string());
    return file;
}

std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    EXPECT_TRUE(stream.is_open()) << file;
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

}  // namespace testing_support
