#include "desktop/Application.hpp"

#include "desktop/dialogs/RowLook.hpp"
#include "desktop/look/Icons.hpp"
#include "desktop/plan/PlanAccessible.hpp"
#include "desktop/window/OnScreen.hpp"
#include "text/Message.hpp"

#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <clocale>
#include <cstdio>
#include <cstdlib>

/// Pictures and languages are in a library, which the linker keeps only where somebody names them. Outside of any
/// namespace.
static void keepResources() {
    Q_INIT_RESOURCE(desktop);
    Q_INIT_RESOURCE(languages);
}

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

/// The texts from below the window. Qt looks them up on whatever thread there is something to say: models are opened on
/// one of their own.
std::string textFromBelow(const char* english) {
    return QCoreApplication::translate("Host", english).toStdString();
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
    keepResources();
    translate();
    makePlaceholdersReadable();
    makeSelectionReadable();
    // Before there is any: what assistive technology once knows of a widget, it keeps.
    describePlansToAssistiveTechnology();
    installEventFilter(new OnScreen(this));
    setWindowIcon(programIcon());
    setDesktopFileName(applicationName());
}

/// Into the language of the user's desktop: Qt's texts, then this program's, which are English without a file.
void Application::translate() {
    const QString qtFolder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    for (const auto& [name, folder] : {std::pair(QStringLiteral("qtbase"), qtFolder),
                                       std::pair(QStringLiteral("modelhost"), QStringLiteral(":/languages"))}) {
        auto* translator = new QTranslator(this);
        if (translator->load(QLocale::system(), name, QStringLiteral("_"), folder)) installTranslator(translator);
    }
    text::setTranslator(&textFromBelow);
}

/// Themes of dark desktops may leave the default, which is black.
void Application::makePlaceholdersReadable() {
    QPalette colours = palette();
    constexpr double LeastContrast = 3;
    const QColor base = colours.color(QPalette::Base), text = colours.color(QPalette::Text);
    const auto blended = [&base](QColor over) {
        const auto mix = [&](int a, int b) { return (a * over.alpha() + b * (255 - over.alpha())) / 255; };
        return QColor(mix(over.red(), base.red()), mix(over.green(), base.green()), mix(over.blue(), base.blue()));
    };
    if (contrast(blended(colours.color(QPalette::PlaceholderText)), base) >= LeastContrast) return;
    QColor readable = text;
    readable.setAlpha(160);
    colours.setColor(QPalette::PlaceholderText, readable);
    setPalette(colours);
}

/// The usual blue of a selection is too light for white text to be read by everybody.
void Application::makeSelectionReadable() {
    QPalette colours = palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const QColor text = colours.color(group, QPalette::HighlightedText);
        colours.setColor(group, QPalette::Highlight, readableOn(text, colours.color(group, QPalette::Highlight)));
    }
    if (colours != palette()) setPalette(colours);
}

}  // namespace desktop
