#include "desktop/window/EditMenu.hpp"

#include "desktop/Text.hpp"
#include "desktop/WaitCursor.hpp"
#include "desktop/elements/ElementPanel.hpp"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>

namespace desktop {

namespace {

QString withName(const QString& verb, bool possible, const std::string& name) {
    if (!possible || name.empty()) return verb;
    return verb + u' ' + toQString(name).replace(u'&', QStringLiteral("&&"));
}

}  // namespace

EditMenu::EditMenu(QMainWindow* owner, Document& shown, ElementPanel& panel, Busy& shared)
    : QObject(owner), window(owner), document(shown), elements(panel), busy(shared) {
    QMenu* menu = window->menuBar()->addMenu(QStringLiteral("&Edit"));
    const auto add = [&](const QString& text, const QKeySequence& key, const QString& prompt) {
        auto* action = menu->addAction(text);
        action->setShortcut(key);
        action->setStatusTip(prompt);
        return action;
    };
    undoItem = add(QStringLiteral("&Undo"), QKeySequence::Undo, QStringLiteral("Take the last step back"));
    redoItem = add(QStringLiteral("&Redo"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
                   QStringLiteral("Do the step again that was taken back"));
    menu->addSeparator();
    copyItem = add(QStringLiteral("Copy &GUID"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
                   QStringLiteral("Copy the GUID of the selected element"));
    findItem = add(QStringLiteral("&Find Elements"), QKeySequence::Find, QStringLiteral("Go to the filter"));

    connect(undoItem, &QAction::triggered, this, [this] {
        const WaitCursor wait;
        document.undo();
    });
    connect(redoItem, &QAction::triggered, this, [this] {
        const WaitCursor wait;
        document.redo();
    });
    connect(copyItem, &QAction::triggered, this, &EditMenu::copyGuid);
    connect(findItem, &QAction::triggered, &elements, &ElementPanel::focusFilter);
    connect(&document, &Document::fileChanged, this, &EditMenu::update);
    connect(&elements, &ElementPanel::currentChanged, this, &EditMenu::update);
    connect(&busy, &Busy::changed, this, &EditMenu::update);
    update();
}

void EditMenu::update() {
    const bool free = document.isOpen() && !busy.active();
    const bool canUndo = free && document.model()->canUndo();
    const bool canRedo = free && document.model()->canRedo();
    undoItem->setEnabled(canUndo);
    redoItem->setEnabled(canRedo);
    undoItem->setText(withName(QStringLiteral("&Undo"), canUndo, canUndo ? document.model()->undoName() : ""));
    redoItem->setText(withName(QStringLiteral("&Redo"), canRedo, canRedo ? document.model()->redoName() : ""));
    copyItem->setEnabled(document.isOpen() && elements.current().has_value());
    findItem->setEnabled(document.isOpen());
}

void EditMenu::copyGuid() {
    const auto element = elements.current();
    if (!element || !document.isOpen()) return;
    const QString guid = guidText(document.index()->guid(*element));
    QApplication::clipboard()->setText(guid);
    window->statusBar()->showMessage(QStringLiteral("Copied %1").arg(guid), 5000);
}

}  // namespace desktop
