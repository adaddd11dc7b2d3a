#pragma once

#include <sys/types.h>

#include <string>

namespace desktop_tests {

/// An X server without a screen, for this process alone, so that the tests neither disturb a desktop nor depend on one.
/// It ends with this object, and with the process if that comes to a sudden end.
class Display {
public:
    Display();
    ~Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// Says how large it is to be, "1280x800"; else it has room for everything.
    static constexpr const char* SizeVariable = "DESKTOP_TESTS_SCREEN";
    /// Says which language the window speaks, "de_DE.UTF-8"; else English.
    static constexpr const char* LanguageVariable = "DESKTOP_TESTS_LANGUAGE";

    /// Whether one is there; otherwise Xvfb is not installed, and every test of a window is skipped.
    static bool available();

private:
    pid_t server_ = -1;
    std::string name_;
};

}  // namespace desktop_tests
