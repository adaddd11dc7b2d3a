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

private:
    void update();
    void copyGuid();

    QMainWindow* window;
    Document& document;
    ElementPanel& elements;
    Busy& busy;
    QAction *undoItem, *redoItem, *copyItem, *findItem;
};

}  // namespace desktop
