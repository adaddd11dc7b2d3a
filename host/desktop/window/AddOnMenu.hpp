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
    /// The first two items of all menus, as on the command line: what imports updates and what looks an element up.
    /// Null where the add-on has none.
    QAction* importAction() const { return itemAt(0); }
    QAction* lookUpAction() const { return itemAt(1); }
    /// Runs the command that ran last once more.
    void pickAgain();

Q_SIGNALS:
    /// A command ended; `error` is its error code.
    void commandEnded(GSErrCode error);
    void rebuilt();

private:
    struct Entry {
        Int16 menu;
        Int32 item;
        QAction* action;
    };
    QAction* itemAt(std::size_t place) const { return place < entries_.size() ? entries_[place].action : nullptr; }
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
