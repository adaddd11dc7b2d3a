#include "desktop/CommandLine.hpp"

#include <cstdlib>

namespace desktop {

const char* const Usage =
    "Usage: modelhost-desktop [MODEL.ifc] [--addon BUNDLE]\n"
    "\n"
    "Shows an IFC model in a window and runs an add-on on it.\n"
    "\n"
    "  --addon BUNDLE   the add-on to load; without it the one that stands beside this program\n"
    "  --help           print this and end\n"
    "  --version        print the version and end\n";

// Read before there is a QApplication: that one needs a display, and --help must not.
CommandLine readCommandLine(const std::vector<std::string>& arguments) {
    CommandLine line;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const bool option = !optionsEnded && argument.size() > 1 && argument.front() == '-';
        if (!option) {
            if (!line.model.empty()) line.error = "one model at a time: do not know what to do with " + argument;
            line.model = argument;
        } else if (argument == "--") {
            optionsEnded = true;
        } else if (argument == "--help" || argument == "-h") {
            line.help = true;
        } else if (argument == "--version") {
            line.version = true;
        } else if (argument == "--addon" && i + 1 < arguments.size()) {
            line.addOn = arguments[++i];
        } else if (argument == "--addon") {
            line.error = "--addon needs the path of a bundle";
        } else {
            line.error = "there is no option " + argument + "; see --help";
        }
    }
    return line;
}

bool haveDisplay() {
    const auto given = [](const char* name) {
        const char* value = std::getenv(name);
        return value && *value;
    };
    return given("DISPLAY") || given("WAYLAND_DISPLAY") || given("QT_QPA_PLATFORM");
}

}  // namespace desktop
