#pragma once

#include "desktop/window/Busy.hpp"
#include "desktop/window/Document.hpp"

#include <QObject>
#include <vector>

class QAction;
class QMainWindow;
class QMenu;

namespace desktop {

/// The menus that the add-on registered, with its texts, prompts, check marks and disabled items.
class AddOnMenu : public QObject {
    Q_OBJECT

public:
    AddOnMenu(QMainWindow* window, host::Host& host, Document& document, Busy& busy);

    /// Takes the menus anew, after an add-on was loaded.
    void rebuild();
    /// The action of an item, from 1; null where there is none.
    QAction* action(Int16 menuStrResID, Int32 itemIndex) const;
    /// Runs the command that ran last once more.
    void pickAgain();

Q_SIGNALS:
    /// A command ended; `error` is its error code.
    void commandEnded(GSErrCode error);

private:
    struct Entry {
        Int16 menu;
        Int32 item;
        QAction* action;
    };
    void update();
    void pick(Int16 menu, Int32 item);

    QMainWindow* window_;
    host::Host& host_;
    Document& document_;
    Busy& busy_;
    std::vector<QMenu*> menus_;
    std::vector<Entry> entries_;
    Int16 lastMenu_ = 0;
    Int32 lastItem_ = 0;
};

}  // namespace desktop
