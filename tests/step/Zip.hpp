#pragma once
// Archives as another program makes and reads them, for the tests of .ifczip.

#include <gtest/gtest.h>
#include <zip.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace step_tests {

class Zip {
public:
    /// @param flags  of zip_open.
    Zip(const std::filesystem::path& path, int flags) : zip(zip_open(path.c_str(), flags, nullptr)) {
        if (zip == nullptr) throw std::runtime_error("no archive: " + path.string());
    }
    ~Zip() { EXPECT_EQ(zip_close(zip), 0); }
    Zip(const Zip&) = delete;
    Zip& operator=(const Zip&) = delete;

    /// @param bytes  must live until the archive is closed. @param method  ZIP_CM_STORE or ZIP_CM_DEFLATE.
    zip_uint64_t add(const std::string& name, const std::string& bytes, int method, unsigned level = 0) {
        zip_source_t* source = zip_source_buffer(zip, bytes.data(), bytes.size(), 0);
        const zip_int64_t at = zip_file_add(zip, name.c_str(), source, 0);
        EXPECT_GE(at, 0);
        const auto number = static_cast<zip_uint64_t>(at);
        zip_set_file_compression(zip, number, method, level);
        zip_file_set_mtime(zip, number, 1'000'000'000, 0);
        return number;
    }

    zip_stat_t stat(zip_uint64_t at) const {
        zip_stat_t found{};
        zip_stat_index(zip, at, 0, &found);
        return found;
    }
    /// An entry's bytes: unpacked, or with ZIP_FL_COMPRESSED as they stand there.
    std::string bytes(zip_uint64_t at, zip_flags_t flags = 0) const {
        const zip_stat_t found = stat(at);
        std::string all((flags & ZIP_FL_COMPRESSED) != 0 ? found.comp_size : found.size, '\0');
        zip_file_t* file = zip_fopen_index(zip, at, flags);
        EXPECT_EQ(zip_fread(file, all.data(), all.size()), static_cast<zip_int64_t>(all.size()));
        zip_fclose(file);
        return all;
    }

    zip_t* zip;
};

}  // namespace step_tests
