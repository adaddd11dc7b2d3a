// modelhost-desktop: the window in which people review updates.

#include "desktop/Application.hpp"
#include "desktop/CommandLine.hpp"
#include "desktop/QtText.hpp"
#include "desktop/window/MainWindow.hpp"

#include <QTimer>
#include <cstdio>

int main(int argc, char** argv) {
    const desktop::CommandLine line = desktop::readCommandLine({argv + 1, argv + argc});
    if (!line.error.empty()) {
        std::fprintf(stderr, "modelhost-desktop: %s\n", line.error.c_str());
        return 1;
    }
    if (line.help || line.version) {
        std::fputs(line.help ? desktop::Usage : "modelhost-desktop " DESKTOP_VERSION "\n", stdout);
        return 0;
    }
    if (!desktop::haveDisplay()) {
        std::fputs("modelhost-desktop: there is no display to open a window on; use modelhost in a terminal\n", stderr);
        return 1;
    }
    desktop::Application application(argc, argv);
    desktop::MainWindow window;
    // Shown before anything that may take a while or fail: what is said then is said in this window.
    window.show();
    window.loadAddOn(line.addOn.empty() ? host::defaultBundle() : line.addOn);
    if (!line.model.empty()) {
        QTimer::singleShot(0, &window, [&] { window.openFile(desktop::pathText(line.model)); });
    }
    return desktop::Application::exec();
}
