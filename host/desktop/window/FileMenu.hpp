#pragma once

#include "desktop/window/Busy.hpp"
#include "desktop/window/Document.hpp"

#include <QObject>
#include <functional>

class QAction;
class QMainWindow;
class QMenu;

namespace desktop {

/// The File menu and what it does: opening, recent files, saving, closing, and the question about unsaved changes.
class FileMenu : public QObject {
    Q_OBJECT

public:
    FileMenu(QMainWindow* window, Document& document, Busy& busy);

    QMenu* menu() const { return menu_; }
    QAction* openAction() const { return open_; }
    QAction* saveFileAction() const { return save_; }
    /// Puts further items before the one that closes the model.
    void insert(QAction* action);

    /// How many changes are proposed by hand: closing the model loses them, too.
    void setProposalCount(std::function<int()> count) { proposals_ = std::move(count); }

    /// A file of updates is no model: it is offered to who imports it. Asks about unsaved changes first. A file that
    /// cannot be opened is said in a message; the model that was open stays. @return whether it is open now.
    bool open(const QString& path);
    void openByDialog();
    /// A file that another program has open is saved under another name; one that another program has changed since is
    /// written over only where the user says so.
    bool save();
    bool saveAs();
    bool close();
    /// @return false: the user wants to go on with the model, or saving it failed.
    bool mayLoseModel();

Q_SIGNALS:
    /// A file was to be opened that holds updates of a model.
    void updatesOffered(const QString& path);

private:
    QAction* add(const QString& text, const QKeySequence& key, const QString& prompt, void (FileMenu::*what)());
    void fillRecent();
    void update();
    bool mayLoseProposals();
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
    std::function<int()> proposals_ = [] { return 0; };
    QMenu* recentMenu_;
    QAction *open_, *save_, *saveAs_, *beforeClose_, *close_, *quit_;
};

}  // namespace desktop
