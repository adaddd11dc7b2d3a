#include "desktop/window/EditMenu.hpp"

#include "desktop/QtText.hpp"
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

/// "Undo" with the step's name, in which an ampersand is a letter.
QString withName(const QString& verb, bool possible, const std::string& name) {
    if (!possible || name.empty()) return verb;
    return verb + u' ' + toQString(name).replace(u'&', QStringLiteral("&&"));
}

}  // namespace

EditMenu::EditMenu(QMainWindow* window, Document& document, ElementPanel& elements, Busy& busy)
    : QObject(window), window_(window), document_(document), elements_(elements), busy_(busy) {
    QMenu* menu = window_->menuBar()->addMenu(QStringLiteral("&Edit"));
    const auto add = [&](const QString& text, const QKeySequence& key, const QString& prompt) {
        auto* action = menu->addAction(text);
        action->setShortcut(key);
        action->setStatusTip(prompt);
        return action;
    };
    undo_ = add(QStringLiteral("&Undo"), QKeySequence::Undo, QStringLiteral("Take the last step back"));
    redo_ = add(QStringLiteral("&Redo"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
                QStringLiteral("Do the step again that was taken back"));
    menu->addSeparator();
    copyGuid_ = add(QStringLiteral("Copy &GUID"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
                    QStringLiteral("Copy the GUID of the selected element"));
    find_ = add(QStringLiteral("&Find Elements"), QKeySequence::Find, QStringLiteral("Go to the filter"));

    connect(undo_, &QAction::triggered, this, [this] {
        const WaitCursor wait;
        document_.undo();
    });
    connect(redo_, &QAction::triggered, this, [this] {
        const WaitCursor wait;
        document_.redo();
    });
    connect(copyGuid_, &QAction::triggered, this, &EditMenu::copyGuid);
    connect(find_, &QAction::triggered, &elements_, &ElementPanel::focusFilter);
    connect(&document_, &Document::fileChanged, this, &EditMenu::update);
    connect(&elements_, &ElementPanel::currentChanged, this, &EditMenu::update);
    connect(&busy_, &Busy::changed, this, &EditMenu::update);
    update();
}

/// Copying and finding only look at the model, so they stay open while a command runs.
void EditMenu::update() {
    const bool free = document_.isOpen() && !busy_.active();
    const bool canUndo = free && document_.model()->canUndo();
    const bool canRedo = free && document_.model()->canRedo();
    undo_->setEnabled(canUndo);
    redo_->setEnabled(canRedo);
    undo_->setText(withName(QStringLiteral("&Undo"), canUndo, canUndo ? document_.model()->undoName() : ""));
    redo_->setText(withName(QStringLiteral("&Redo"), canRedo, canRedo ? document_.model()->redoName() : ""));
    copyGuid_->setEnabled(document_.isOpen() && elements_.current().has_value());
    find_->setEnabled(document_.isOpen());
}

void EditMenu::copyGuid() {
    const auto element = elements_.current();
    if (!element || !document_.isOpen()) return;
    const QString guid = guidText(document_.index()->guid(*element));
    QApplication::clipboard()->setText(guid);
    window_->statusBar()->showMessage(QStringLiteral("Copied %1").arg(guid), 5000);
}

}  // namespace desktop
