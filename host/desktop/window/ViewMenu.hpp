#pragma once

#include <QObject>
#include <vector>

class QDockWidget;
class QMainWindow;
class QMenu;
class QToolBar;

namespace desktop {

/// Which panels are shown.
class ViewMenu : public QObject {
    Q_OBJECT

public:
    struct Panel {
        QDockWidget* dock;
        const char* text;  ///< With its mnemonic, marked for translation in this class.
        bool needsModel;
    };
    /// @param columns  of the table, a menu of its own.
    ViewMenu(QMainWindow* window, QToolBar* bar, std::vector<Panel> panels, QMenu* columns);

    /// Without a model there is nothing in most of them.
    void setModelOpen(bool open);

private:
    std::vector<Panel> panels_;
    QMenu* columns_;
};

}  // namespace desktop
