#pragma once

#include "desktop/window/Busy.hpp"
#include "desktop/window/Document.hpp"

#include <QObject>

class QAction;
class QMainWindow;

namespace desktop {

class ElementPanel;

/// Undo and redo with the steps' names, and what concerns the chosen element.
class EditMenu : public QObject {
    Q_OBJECT

public:
    EditMenu(QMainWindow* window, Document& document, ElementPanel& elements, Busy& busy);

    QAction* undoAction() const { return undo_; }
    QAction* redoAction() const { return redo_; }

private:
    void update();
    void copyGuid();

    QMainWindow* window_;
    Document& document_;
    ElementPanel& elements_;
    Busy& busy_;
    QAction *undo_, *redo_, *copyGuid_, *find_;
};

}  // namespace desktop
