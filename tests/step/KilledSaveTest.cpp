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

/// A program that sets every string to another digit and saves, until it is killed.
class SavingProgram {
public:
    SavingProgram(const std::filesystem::path& path, char firstDigit) {
        if (::pipe(pipe_) != 0) throw std::runtime_error("no pipe");
        process_ = ::fork();
        if (process_ == 0) run(path, firstDigit);
    }
    ~SavingProgram() {
        ::close(pipe_[0]);
        ::close(pipe_[1]);
    }
    SavingProgram(const SavingProgram&) = delete;
    SavingProgram& operator=(const SavingProgram&) = delete;

    /// Until it begins to save or has saved.
    void waitForSign() {
        char sign = 0;
        EXPECT_EQ(::read(pipe_[0], &sign, 1), 1);
    }
    void kill() {
        int status = 0;
        ::kill(process_, SIGKILL);
        EXPECT_EQ(::waitpid(process_, &status, 0), process_);
        EXPECT_TRUE(WIFSIGNALED(status)) << "saving failed";
    }

private:
    void sign() {
        if (::write(pipe_[1], "s", 1) != 1) ::_exit(1);
    }

    [[noreturn]] void run(const std::filesystem::path& path, char digit) {
        for (auto file = StepFile::open(path); file; digit = digit == '9' ? '0' : static_cast<char>(digit + 1)) {
            if (!(*file)->begin()) break;
            const std::string text = "'" + std::string(40, digit) + "'";
            Instance instance;
            for (Slot slot = 0; slot < (*file)->slotCount(); ++slot)
                if ((*file)->read(slot, instance)) (void)(*file)->replaceValue(slot, instance.arguments[0], text);
            (*file)->commit("Edit");
            sign();
            if (!(*file)->save(path)) break;
            sign();
        }
        ::_exit(1);
    }

    int pipe_[2] = {};
    pid_t process_ = -1;
};

using Clock = std::chrono::steady_clock;

/// On this machine, in this build.
Clock::duration durationOfASave(const std::filesystem::path& path) {
    SavingProgram program(path, '1');
    program.waitForSign();
    const Clock::time_point begin = Clock::now();
    program.waitForSign();
    const Clock::duration duration = Clock::now() - begin;
    program.kill();
    return duration;
}

TEST(KilledSave, LeavesOneWholeVersion) {
    const TempFolder folder;
    std::vector<std::string> versions;
    for (char digit = '0'; digit <= '9'; ++digit) versions.push_back(version(digit));
    const auto path = folder.write("house.ifc", versions[0]);
    std::chrono::duration<double> save = durationOfASave(path);
    std::mt19937 random(20240229);
    std::uniform_real_distribution<double> part(0.0, 1.5);
    int replaced = 0;
    int untouched = 0;
    for (int kill = 0; kill < 50; ++kill) {
        const std::string before = bytesOf(path);
        SavingProgram program(path, before == versions[1] ? '2' : '1');
        program.waitForSign();
        std::this_thread::sleep_for(save * part(random));
        program.kill();
        const std::string after = bytesOf(path);
        ASSERT_NE(std::find(versions.begin(), versions.end(), after), versions.end()) << "kill " << kill;
        const bool tooEarly = after == before;
        ++(tooEarly ? untouched : replaced);
        // Other programs may be slowing this one down more than when it was measured, or less.
        save *= tooEarly ? 1.25 : 0.8;
    }
    // Otherwise the kills came too early or too late to try anything.
    EXPECT_GT(replaced, 0);
    EXPECT_GT(untouched, 0);
}

}  // namespace
}  // namespace step_tests
