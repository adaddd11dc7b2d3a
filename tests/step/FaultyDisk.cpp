#include "step/FaultyDisk.hpp"

#include "model/step/disk/ContentSum.hpp"

#include <memory>
#include <new>
#include <thread>

namespace step_tests {

using model::step::FileState;
using model::step::TemporaryFile;
namespace fs = std::filesystem;

class FakeTemporaryFile final : public TemporaryFile {
public:
    explicit FakeTemporaryFile(FaultyDisk& owner) : disk_(owner) { ++disk_.temporaries; }
    ~FakeTemporaryFile() override {
        if (!replaced_) --disk_.temporaries;
    }

    std::error_code write(std::span<const std::string_view> pieces) override {
        const std::error_code error = disk_.step("write");
        std::this_thread::sleep_for(disk_.slowness);
        for (const std::string_view piece : pieces) bytes_ += piece;
        // A disk that gets full has taken the first part.
        if (error) bytes_.resize(bytes_.size() / 2);
        return error;
    }
    std::error_code takeOver(const FileState&, const fs::path&) override { return disk_.step("takeOver"); }
    std::error_code sync() override { return disk_.step("sync"); }
    std::error_code replace(const fs::path& target) override {
        if (const std::error_code error = disk_.step("replace")) return error;
        disk_.put(target.string(), bytes_);
        replaced_ = true;
        --disk_.temporaries;
        return {};
    }

private:
    FaultyDisk& disk_;
    std::string bytes_;
    bool replaced_ = false;
};

void FaultyDisk::put(const std::string& path, const std::string& bytes) {
    files[path] = bytes;
    times_[path] = changeTimes_[path] = ++clock_;
}

void FaultyDisk::putWithOldTime(const std::string& path, const std::string& bytes) {
    files[path] = bytes;
    changeTimes_[path] = ++clock_;
}

std::error_code FaultyDisk::step(const char* name) {
    calls.emplace_back(name);
    if (calls.size() - 1 == outOfMemory) throw std::bad_alloc();
    if (calls.size() == intruding)
        for (auto& [path, bytes] : files) put(path, Intrusion);
    return calls.size() - 1 == failing ? failure : std::error_code();
}

std::error_code FaultyDisk::resolve(const fs::path& path, fs::path& target) {
    target = path;
    return step("resolve");
}

std::error_code FaultyDisk::state(const fs::path& path, FileState& state) {
    state = {};
    if (const std::error_code error = step("state")) return error;
    const auto file = files.find(path.string());
    if (file == files.end()) return {};
    state.exists = state.regular = state.writable = true;
    state.size = file->second.size();
    state.modified = times_[path.string()];
    state.changed = changeTimes_[path.string()];
    return {};
}

std::error_code FaultyDisk::sum(const fs::path& path, std::uint64_t& sum) {
    if (const std::error_code error = step("sum")) return error;
    model::step::ContentSum content;
    content.add(files[path.string()]);
    sum = content.result();
    return {};
}

std::error_code FaultyDisk::createTemporary(const fs::path&, const FileState&, std::unique_ptr<TemporaryFile>& file) {
    if (const std::error_code error = step("create")) return error;
    file = std::make_unique<FakeTemporaryFile>(*this);
    return {};
}

std::error_code FaultyDisk::syncFolder(const fs::path&) {
    return step("syncFolder");
}

}  // namespace step_tests
