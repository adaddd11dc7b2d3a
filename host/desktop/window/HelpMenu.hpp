#pragma once

#include "services/Host.hpp"

#include <QObject>

class QAction;
class QMainWindow;
class QMenu;

namespace desktop {

/// The folders of help that the add-on registered, and what this program is.
class HelpMenu : public QObject {
    Q_OBJECT

public:
    HelpMenu(QMainWindow* window, host::Host& host);

    QAction* menuAction() const;

    /// What the folders' entry opens; tests look instead of opening a window of another program.
    std::function<bool(const QString& folder)> openFolder;

private:
    void fill();
    void about();

    QMainWindow* window_;
    host::Host& host_;
    QMenu* menu_;
};

}  // namespace desktop
