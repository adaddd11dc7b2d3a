#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace desktop {

/// modelhost-desktop [MODEL.ifc] [--addon BUNDLE]
struct CommandLine {
    std::filesystem::path model;  ///< Empty: none.
    std::filesystem::path addOn;  ///< Empty: the one beside the program.
    bool help = false, version = false;
    std::string error;  ///< One line; empty where the line is right.
};

CommandLine readCommandLine(const std::vector<std::string>& arguments);
extern const char* const Usage;

/// Whether there is a display to draw on, as far as the environment tells. Asked before Qt is, which ends the process
/// by a signal where there is none.
bool haveDisplay();

}  // namespace desktop
