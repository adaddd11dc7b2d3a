#include "services/ProgramFolder.hpp"

#include "services/Host.hpp"

#include <system_error>

namespace host {

std::optional<std::filesystem::path> programFolder(const std::filesystem::path& linkToProgram) {
    std::error_code failed;
    const std::filesystem::path program = std::filesystem::read_symlink(linkToProgram, failed);
    // Not the current folder instead: whoever can put a bundle there would have it run.
    if (failed || !program.is_absolute()) return std::nullopt;
    return program.parent_path();
}

std::filesystem::path defaultBundle() {
    const auto program = programFolder();
    return program ? *program / "ZUNACAddin19.bundle" : std::filesystem::path();
}

}  // namespace host
