#include "console/output/StandardOutput.hpp"

#include "console/Failure.hpp"

#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace console {
namespace {

[[noreturn]] void failWriting() {
    throw Failure(fmt::format("cannot write the result to standard output: {}; send it where there is room",
                              std::strerror(errno)));
}

}  // namespace

void print(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) failWriting();
}

void flushStandardOutput() {
    if (std::fflush(stdout) != 0) failWriting();
}

}  // namespace console
