#include "services/ProgramFolder.hpp"

#include "services/Host.hpp"

#include <system_error>

namespace host {

std::filesystem::path programFolder() {
    std::error_code failed;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failed);
    return failed ? std::filesystem::current_path() : program.parent_path();
}

std::filesystem::path defaultBundle() {
    return programFolder() / "ZUNACAddin19.bundle";
}

}  // namespace host
