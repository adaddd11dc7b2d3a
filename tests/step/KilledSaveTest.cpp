// A program that is killed while it saves: whatever the moment, the old version or the new one is there whole.

#include "step/StepText.hpp"
#include "support/TempFolder.hpp"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace step_tests {
namespace {

using testing_support::bytesOf;
using testing_support::TempFolder;

std::string version(char digit) {
    std::string data;
    for (int i = 1; i <= 20000; ++i) data += "#" + std::to_string(i) + "=A('" + std::string(40, digit) + "');\n";
    return fileOf(data);
}

/// Sets every string to another digit and saves, until killed.
[[noreturn]] void saveForEver(const std::filesystem::path& path) {
    auto file = StepFile::open(path);
    for (char digit = '1'; file; digit = digit == '9' ? '0' : static_cast<char>(digit + 1)) {
        if (!(*file)->begin()) break;
        const std::string text = "'" + std::string(40, digit) + "'";
        Instance instance;
        for (Slot slot = 0; slot < (*file)->instanceCount(); ++slot)
            if ((*file)->read(slot, instance)) (void)(*file)->replaceValue(slot, instance.arguments[0], text);
        (*file)->commit("Edit");
        if (!(*file)->save(path)) break;
    }
    ::_exit(1);
}

TEST(KilledSave, LeavesOneWholeVersion) {
    const TempFolder folder;
    std::vector<std::string> versions;
    for (char digit = '0'; digit <= '9'; ++digit) versions.push_back(version(digit));
    const auto path = folder.write("house.ifc", versions[0]);
    std::mt19937 random(20240229);
    std::uniform_int_distribution<int> microseconds(0, 60000);
    int replaced = 0;
    for (int kill = 0; kill < 50; ++kill) {
        const std::string before = bytesOf(path);
        const pid_t child = ::fork();
        if (child == 0) saveForEver(path);
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status)) << "saving failed";
        const std::string after = bytesOf(path);
        ASSERT_NE(std::find(versions.begin(), versions.end(), after), versions.end()) << "kill " << kill;
        replaced += after == before ? 0 : 1;
    }
    // Otherwise the kills came too early to try anything.
    EXPECT_GT(replaced, 0);
}

}  // namespace
}  // namespace step_tests
