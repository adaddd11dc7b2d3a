#include "desktop/window/ViewMenu.hpp"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <utility>

namespace desktop {

ViewMenu::ViewMenu(QMainWindow* window, QToolBar* bar, std::vector<Panel> panels, QMenu* columns)
    : QObject(window), panels_(std::move(panels)), columns_(columns) {
    QMenu* menu = window->menuBar()->addMenu(tr("&View"));
    int key = Qt::Key_1;
    for (const Panel& panel : panels_) {
        QAction* toggle = panel.dock->toggleViewAction();
        toggle->setShortcut(QKeyCombination(Qt::CTRL, static_cast<Qt::Key>(key++)));
        toggle->setStatusTip(tr("Show or hide this panel"));
        menu->addAction(toggle);
        // A dock gives its title to the action, and its title has no mnemonic.
        const QString text = tr(panel.text);
        toggle->setText(text);
        connect(panel.dock, &QWidget::windowTitleChanged, toggle, [toggle, text] { toggle->setText(text); });
    }
    menu->addSeparator();
    bar->toggleViewAction()->setText(tr("&Tool Bar"));
    bar->toggleViewAction()->setStatusTip(tr("Show or hide the tool bar"));
    menu->addAction(bar->toggleViewAction());
    menu->addMenu(columns_);
}

void ViewMenu::setModelOpen(bool open) {
    for (const Panel& panel : panels_) panel.dock->toggleViewAction()->setEnabled(open || !panel.needsModel);
    columns_->menuAction()->setEnabled(open);
}

}  // namespace desktop
