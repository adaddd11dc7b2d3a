// Pipes and devices: what never ends is not copied, and waiting for a reader can be interrupted.

#include "ConsoleTest.hpp"
#include "importing/UpdateFile.hpp"

#include <sys/stat.h>

#include <csignal>
#include <fstream>
#include <thread>

namespace console_tests {
namespace {

class EndlessInput : public ConsoleTest {
protected:
    /// Lets `count` bytes of text come out of a pipe, as one line after the other.
    std::string messageFor(std::size_t count) {
        const std::filesystem::path pipe = folder_.path() / "pipe";
        EXPECT_EQ(mkfifo(pipe.c_str(), 0600), 0);
        std::signal(SIGPIPE, SIG_IGN);
        std::thread writer([&] {
            std::ofstream stream(pipe, std::ios::binary);
            const std::string block = std::string(65535, 'x') + "\n";
            for (std::size_t written = 0; written < count && stream; written += block.size())
                stream.write(block.data(), static_cast<std::streamsize>(std::min(block.size(), count - written)));
        });
        std::string message;
        if (const auto file = importing::UpdateFile::open(pipe, true); !file) message = file.error().message;
        writer.join();
        std::signal(SIGPIPE, SIG_DFL);
        std::filesystem::remove(pipe);
        return message;
    }
};

TEST_F(EndlessInput, OfADeviceIsNoUpdateFile) {
    expectError(run({"import", "house.ifc", "/dev/zero"}), {"the update file /dev/zero: it is no text file"});
}

TEST_F(EndlessInput, OfAPipeEndsAtTheLimit) {
    const std::size_t limit = importing::UpdateFile::LongestCopy;
    EXPECT_EQ(messageFor(limit - 1), "");
    EXPECT_EQ(messageFor(limit), "");
    EXPECT_THAT(messageFor(limit + 1), HasSubstr("more than 256 MiB came out of it; save it as a file first"));
}

TEST_F(EndlessInput, AsAScriptIsRefused) {
    expectError(run({"script", "house.ifc", "/dev/zero"}), {"cannot read line 1 of the steps in /dev/zero"});
}

class WaitingForAReader : public ConsoleTest, public testing::WithParamInterface<int> {};

TEST_P(WaitingForAReader, IsEndedByTheSignal) {
    ASSERT_EQ(mkfifo((folder_.path() / "pipe").c_str(), 0600), 0);
    const Outcome outcome = modelhost().runAndSignal({"export", "house.ifc", "--items", "Name", "-o", "pipe"},
                                                     GetParam(), std::chrono::milliseconds(500));
    EXPECT_EQ(outcome.signal, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Signals, WaitingForAReader, testing::Values(SIGINT, SIGTERM, SIGHUP));

}  // namespace
}  // namespace console_tests
