#include "console/output/OutputFile.hpp"

#include "console/Failure.hpp"
#include "console/output/Messages.hpp"

#include <fmt/format.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace console {
namespace {

constexpr std::size_t KeptAtMost = std::size_t{1} << 20U;  ///< Bytes.

std::error_code lastError() {
    return {errno, std::system_category()};
}

}  // namespace

OutputFile::OutputFile(std::filesystem::path target) : target_(std::move(target)) {
    model::step::Disk& disk = model::step::Disk::real();
    check(disk.resolve(target_, place_));
    check(disk.state(place_, old_));
    if (old_.exists && !old_.regular) {
        device_ = std::fopen(place_.c_str(), "wb");
        if (device_ == nullptr) check(lastError());
        return;
    }
    guard_.emplace();
    check(disk.createTemporary(place_, old_, temporary_));
}

OutputFile::~OutputFile() {
    close();
}

void OutputFile::checkPlace(const std::filesystem::path& target) {
    std::error_code ignored;
    const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";
    if (!std::filesystem::is_directory(folder, ignored)) {
        throw Failure(
            fmt::format("cannot write {}: there is no folder {}; make it first, or choose another place with -o",
                        target.string(), folder.string()));
    }
    if (std::filesystem::is_directory(target, ignored))
        throw Failure(fmt::format("cannot write {}: it is a folder; name a file in it", target.string()));
}

void OutputFile::write(std::string_view text) {
    if (device_ != nullptr) {
        if (std::fwrite(text.data(), 1, text.size(), device_) != text.size()) check(lastError());
    } else {
        kept_ += text;
        if (kept_.size() >= KeptAtMost) handOver();
    }
    stopIfInterrupted();
}

void OutputFile::commit() {
    if (device_ != nullptr && std::fflush(device_) != 0) check(lastError());
    if (temporary_ == nullptr) return;
    handOver();
    if (old_.exists) check(temporary_->takeOver(old_, place_));
    check(temporary_->sync());
    stopIfInterrupted();
    check(temporary_->replace(place_));
    temporary_.reset();
}

void OutputFile::handOver() {
    const std::string_view piece = kept_;
    check(temporary_->write({&piece, 1}));
    kept_.clear();
}

void OutputFile::close() {
    if (device_ != nullptr) std::fclose(device_);
    device_ = nullptr;
    temporary_.reset();
}

void OutputFile::check(const std::error_code& error) const {
    if (error) {
        throw Failure(
            fmt::format("cannot write {}: {}; choose another place with -o", target_.string(), error.message()));
    }
}

void OutputFile::stopIfInterrupted() {
    if (!InterruptGuard::interrupted()) return;
    close();
    complain(fmt::format("interrupted; {} was not written", target_.string()));
    InterruptGuard::dieIfInterrupted();
}

}  // namespace console
