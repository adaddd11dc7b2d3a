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
/// A menu item for the step named, if there is one.
void offer(QAction& action, const QString& verb, const std::optional<std::string>& step) {
    action.setEnabled(step.has_value());
    const bool named = step && !step->empty();
    action.setText(named ? verb + u' ' + toQString(*step).replace(u'&', QStringLiteral("&&")) : verb);
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
    const auto steps = free ? document_.model()->undoSteps() : model::UndoSteps();
    offer(*undo_, QStringLiteral("&Undo"), steps.undo);
    offer(*redo_, QStringLiteral("&Redo"), steps.redo);
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
