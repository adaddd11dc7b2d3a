#include "model/step/disk/TemporaryNames.hpp"

#include "model/step/disk/FileLock.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string_view>
#include <system_error>

namespace model::step {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view Ending = ".tmp";
constexpr std::size_t DigitCount = 8;

/// ".house.ifc.": of a name too long for more, its beginning, cut between two characters of UTF-8.
std::string beginningOf(const fs::path& target) {
    constexpr std::size_t Room = NAME_MAX - DigitCount - Ending.size() - 2;  // for the two points
    const std::string name = target.filename().string();
    std::size_t length = std::min(name.size(), Room);
    while (length < name.size() && length > 0 && (static_cast<unsigned char>(name[length]) & 0xC0U) == 0x80) --length;
    return "." + name.substr(0, length) + ".";
}

bool isTemporary(std::string_view name, std::string_view beginning) {
    if (name.size() != beginning.size() + DigitCount + Ending.size()) return false;
    const std::string_view digits = name.substr(beginning.size(), DigitCount);
    return name.starts_with(beginning) && name.ends_with(Ending) &&
           digits.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

void removeUnlessLocked(const fs::path& path) {
    // What has such a name need not be ours: a link is not followed, a pipe not waited for.
    const FileHandle file(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat found {};
    if (!file || ::fstat(file.number(), &found) != 0 || !S_ISREG(found.st_mode)) return;
    // A program that still writes its file holds a lock on it.
    if (tryLock(file) == LockResult::Taken) ::unlink(path.c_str());
}

}  // namespace

std::string temporaryName(const fs::path& target) {
    std::uint32_t random = 0;
    if (::getentropy(&random, sizeof random) != 0) random = static_cast<std::uint32_t>(::getpid());
    std::array<char, DigitCount + 1> digits{};
    std::snprintf(digits.data(), digits.size(), "%08x", static_cast<unsigned>(random));
    return (target.parent_path() / beginningOf(target).append(digits.data()).append(Ending)).string();
}

void removeLeftOvers(const fs::path& target) {
    const std::string beginning = beginningOf(target);
    // The standard library's iterator over a folder ends the program where memory runs out.
    const auto close = [](DIR* open) { ::closedir(open); };
    const std::unique_ptr<DIR, decltype(close)> entries(::opendir(target.parent_path().c_str()));
    while (const dirent* entry = entries ? ::readdir(entries.get()) : nullptr)
        if (isTemporary(entry->d_name, beginning)) removeUnlessLocked(target.parent_path() / entry->d_name);
}

}  // namespace model::step
