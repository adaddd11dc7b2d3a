#include "desktop/Application.hpp"

#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <clocale>
#include <cstdio>
#include <cstdlib>

namespace desktop {

namespace {

/// Qt reports a display that does not answer as a fatal error, in several lines and with a core dump.
void untilStarted(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg) return;
    std::fputs("modelhost-desktop: the display cannot be opened; check DISPLAY, or use modelhost in a terminal\n",
               stderr);
    std::_Exit(1);
}

/// Quiet while the base class starts; a member of its own would come too late.
int& quietStart(int& argc) {
    qInstallMessageHandler(untilStarted);
    return argc;
}

}  // namespace

Application::Application(int& argc, char** argv) : QApplication(quietStart(argc), argv) {
    qInstallMessageHandler(nullptr);
    // Qt has taken the user's locale over. A comma for a decimal point would change what add-on and model read as
    // numbers, so numbers stay as they are in files.
    std::setlocale(LC_NUMERIC, "C");
    setOrganizationName(QStringLiteral("modelhost"));
    setApplicationName(QStringLiteral("modelhost-desktop"));
    setApplicationDisplayName(QStringLiteral("Model Host"));
    setApplicationVersion(QStringLiteral(DESKTOP_VERSION));
    translateQt();
}

void Application::translateQt() {
    auto* translator = new QTranslator(this);
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (translator->load(QLocale::system(), QStringLiteral("qtbase"), QStringLiteral("_"), folder)) {
        installTranslator(translator);
    }
}

}  // namespace desktop
