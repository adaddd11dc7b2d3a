// Crashes in its menu command, and has code that runs when the image or the program ends.

#include "AddOn.hpp"

#include <unistd.h>
#include <cstdlib>

namespace {

void say(const char* text) {
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, text, std::strlen(text));
}

void endHook() {
    say("[the end hook ran]");
}

__attribute__((constructor)) void startHook() {
    std::atexit(&endHook);
}

__attribute__((destructor)) void destructor() {
    say("[the destructor ran]");
}

}  // namespace

const gallery::Behaviour gallery::behaviour = {.command = [](const API_MenuParams*) {
    gallery::writeToNowhere();
    return GSErrCode{NoError};
}};
