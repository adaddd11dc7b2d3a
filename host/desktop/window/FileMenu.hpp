#pragma once

#include "desktop/window/Busy.hpp"
#include "desktop/window/Document.hpp"

#include <QObject>
#include <QStringList>

class QAction;
class QMainWindow;
class QMenu;

namespace desktop {

/// The models opened last, the newest first, kept in the user's settings.
class RecentFiles {
public:
    static constexpr int Most = 10;

    static QStringList list();
    static void add(const QString& path);
    static void remove(const QString& path);
    static void clear();
};

/// The File menu and what it does: opening, recent files, saving, closing, and the question about unsaved changes.
class FileMenu : public QObject {
    Q_OBJECT

public:
    FileMenu(QMainWindow* window, Document& document, Busy& busy);

    QMenu* menu() const { return menu_; }

    /// Asks about unsaved changes first. A file that cannot be opened is said in a message; the model that was open
    /// stays. @return whether it is open now.
    bool open(const QString& path);
    void openByDialog();
    /// A file that another program has open is saved under another name; one that another program has changed since is
    /// written over only where the user says so.
    bool save();
    bool saveAs();
    bool close();
    /// @return false: the user wants to go on with the model, or saving it failed.
    bool mayLoseModel();

private:
    QAction* add(const QString& text, const QKeySequence& key, const QString& prompt, void (FileMenu::*what)());
    void fillRecent();
    void update();
    bool saveTo(const QString& path, bool force = false);
    bool mayReplace(const QString& path);
    bool askAboutChangedFile(const QString& path, const model::Error& error);
    void quit();
    void saveAction() { save(); }
    void saveAsAction() { saveAs(); }
    void closeAction() { close(); }

    QMainWindow* window_;
    Document& document_;
    Busy& busy_;
    QMenu* menu_;
    QMenu* recentMenu_;
    QAction *open_, *save_, *saveAs_, *close_, *quit_;
};

}  // namespace desktop
