#include "Display.hpp"
#include "desktop/Application.hpp"
#include "support/TempFolder.hpp"

#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const desktop_tests::Display display;
    // Settings, recent files and window places of the person who runs the tests stay untouched.
    const testing_support::TempFolder home;
    setenv("XDG_CONFIG_HOME", home.path().c_str(), 1);
    // The add-on's texts in English, and a comma for a decimal point where the machine knows such a locale: no number
    // in a file may follow it.
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANGUAGE"}) unsetenv(name);
    const char* language = std::getenv(desktop_tests::Display::LanguageVariable);
    setenv("LANG", language ? language : "C.UTF-8", 1);
    setenv("LC_NUMERIC", "de_DE.UTF-8", 1);
    desktop::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
