#include "desktop/window/HelpMenu.hpp"

#include "desktop/QtText.hpp"
#include "frameworks/FrontEnd.hpp"

#include <QAction>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QUrl>

namespace desktop {

HelpMenu::HelpMenu(QMainWindow* window, host::Host& host)
    : QObject(window),
      openFolder([](const QString& folder) { return QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); }),
      window_(window),
      host_(host),
      menu_(window_->menuBar()->addMenu(tr("&Help"))) {
    connect(menu_, &QMenu::aboutToShow, this, &HelpMenu::fill);
    fill();
}

/// Anew each time that it is shown: an add-on may register a folder in any of its commands.
void HelpMenu::fill() {
    menu_->clear();
    for (const frontend::HelpLocation& location : frontend::helpLocations()) {
        const QString folder = toQString(location.path);
        QAction* action = menu_->addAction(tr("&Add-On Help"));
        action->setStatusTip(tr("Open the folder %1").arg(folder));
        connect(action, &QAction::triggered, this, [this, folder] {
            if (openFolder(folder)) return;
            QMessageBox::information(window_, tr("Add-On Help"),
                                     tr("No program is set up to show folders. The help is in %1").arg(folder));
        });
    }
    if (!menu_->isEmpty()) menu_->addSeparator();
    connect(menu_->addAction(tr("A&bout")), &QAction::triggered, this, &HelpMenu::about);
}

QAction* HelpMenu::menuAction() const {
    return menu_->menuAction();
}

void HelpMenu::about() {
    QMessageBox box(QMessageBox::NoIcon, tr("About"), QStringLiteral("Model Host"), QMessageBox::Ok, window_);
    box.setObjectName(QStringLiteral("aboutMessage"));
    QString text = tr("Opens IFC models and runs an add-on on them.\nVersion %1, Qt %2")
                       .arg(QCoreApplication::applicationVersion(), QString::fromLatin1(qVersion()));
    if (host_.addOnLoaded()) {
        text += tr("\n\nAdd-on: %1\n%2").arg(toQString(host_.addOnName()), toQString(host_.addOnDescription()));
    }
    box.setInformativeText(text);
    box.exec();
}

}  // namespace desktop
