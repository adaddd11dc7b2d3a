#include "console/StandardInput.hpp"

#include "console/Failure.hpp"
#include "updatefile/FileKind.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace console {
namespace {

[[noreturn]] void failKeeping() {
    throw Failure(fmt::format("cannot keep standard input in {}: {}; make room there, or set TMPDIR",
                              std::filesystem::temp_directory_path().string(), std::strerror(errno)));
}

std::size_t readBlock(std::array<char, 1U << 16U>& block) {
    while (true) {
        const ssize_t count = read(STDIN_FILENO, block.data(), block.size());
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno != EINTR)
            throw Failure(fmt::format("cannot read the model from standard input: {}", std::strerror(errno)));
    }
}

void writeAll(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = write(file, text.data(), text.size());
        if (count < 0 && errno != EINTR) failKeeping();
        if (count > 0) text.remove_prefix(static_cast<std::size_t>(count));
    }
}

/// A device such as /dev/zero has no end, so the beginning is looked at before all of it is kept.
void checkBeginning(std::string_view text) {
    if (text.empty()) throw Failure("standard input is empty; send a model, as in 'modelhost list - < house.ifc'");
    if (text.starts_with("PK")) return;
    if (updatefile::detectFileKind(text) == updatefile::FileKind::Binary)
        throw Failure("standard input is no IFC file; send a .ifc or an .ifczip");
}

}  // namespace

StandardInput::StandardInput(Holds what) {
    std::string name = (std::filesystem::temp_directory_path() / "modelhost.XXXXXX").string();
    const int file = mkostemp(name.data(), O_CLOEXEC);
    if (file < 0) failKeeping();
    path_ = name;
    try {
        copy(file, what);
    } catch (...) {
        close(file);
        unlink(path_.c_str());
        throw;
    }
    close(file);
}

StandardInput::~StandardInput() {
    unlink(path_.c_str());
}

void StandardInput::copy(int file, Holds what) {
    std::array<char, 1U << 16U> block{};
    std::uintmax_t kept = 0;
    std::size_t count = readBlock(block);
    if (what == Holds::AModel) checkBeginning({block.data(), count});
    for (; count > 0; count = readBlock(block)) {
        if ((kept += count) > Longest) {
            throw Failure(
                fmt::format("more than {} GiB came by standard input; save the model as a file first", Longest >> 30U));
        }
        writeAll(file, {block.data(), count});
    }
}

}  // namespace console
