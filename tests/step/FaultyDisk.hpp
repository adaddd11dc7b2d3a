#pragma once
// A disk in memory that fails when told to.

#include "model/step/disk/Disk.hpp"

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace step_tests {

class FaultyDisk : public model::step::Disk {
public:
    /// The files, as another program would see them at this moment.
    std::map<std::string, std::string> files;
    /// Number of temporary files that exist.
    int temporaries = 0;
    /// The steps asked for, in order: "resolve", "state", "create", "write", "takeOver", "sync", "replace",
    /// "syncFolder".
    std::vector<std::string> calls;
    /// The call, counted from 0, that fails, and how.
    std::size_t failing = ~std::size_t{0};
    std::error_code failure;
    /// The call, counted from 0, before which memory runs out.
    std::size_t outOfMemory = ~std::size_t{0};
    /// Another program writes this over all files as soon as so many calls were made.
    static constexpr const char* Intrusion = "written by somebody else";
    std::size_t intruding = ~std::size_t{0};
    /// How long a write takes.
    std::chrono::milliseconds slowness{0};

    std::error_code resolve(const std::filesystem::path& path, std::filesystem::path& target) override;
    std::error_code sum(const std::filesystem::path& path, std::uint64_t& sum) override;
    std::error_code state(const std::filesystem::path& path, model::step::FileState& state) override;
    std::error_code createTemporary(const std::filesystem::path& target, const model::step::FileState& old,
                                    std::unique_ptr<model::step::TemporaryFile>& file) override;
    std::error_code syncFolder(const std::filesystem::path& folder) override;

    /// Writes a file as another program would.
    void put(const std::string& path, const std::string& bytes);
    /// The same, and sets its time back to what it was.
    void putWithOldTime(const std::string& path, const std::string& bytes);
    std::error_code step(const char* name);

private:
    friend class FakeTemporaryFile;

    std::map<std::string, std::int64_t> times_;
    std::map<std::string, std::int64_t> changeTimes_;
    std::int64_t clock_ = 0;
};

}  // namespace step_tests
