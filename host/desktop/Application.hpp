#pragma once

#include <QApplication>

namespace desktop {

/// The Qt application, with what every window of this program and of its tests relies on.
class Application : public QApplication {
    Q_OBJECT

public:
    /// Ends the process with one line on standard error and status 1 where the display does not answer.
    Application(int& argc, char** argv);

private:
    void translate();
    void makePlaceholdersReadable();
    void makeSelectionReadable();
};

}  // namespace desktop
