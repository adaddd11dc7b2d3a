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

/// A menu item for the step named, if there is one, in whose name an ampersand is a letter.
void offer(QAction& action, const QString& verb, const std::optional<std::string>& step) {
    action.setEnabled(step.has_value());
    const bool named = step && !step->empty();
    // A tool bar whose buttons change their widths with each step is hard to hit.
    action.setIconText(QString(verb).remove(u'&'));
    action.setText(named ? EditMenu::tr("%1 %2").arg(verb, toQString(*step).replace(u'&', QStringLiteral("&&")))
                         : verb);
}

}  // namespace

EditMenu::EditMenu(QMainWindow* window, Document& document, ElementPanel& elements, Busy& busy)
    : QObject(window), window_(window), document_(document), elements_(elements), busy_(busy) {
    QMenu* menu = window_->menuBar()->addMenu(tr("&Edit"));
    const auto add = [&](const QString& text, const QKeySequence& key, const QString& prompt) {
        auto* action = menu->addAction(text);
        action->setShortcut(key);
        action->setStatusTip(prompt);
        return action;
    };
    undo_ = add(tr("&Undo"), QKeySequence::Undo, tr("Take the last step back"));
    redo_ =
        add(tr("&Redo"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), tr("Do the step again that was taken back"));
    menu->addSeparator();
    copyGuid_ = add(tr("Copy &GUID"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
                    tr("Copy the GUID of the selected element"));
    find_ = add(tr("&Find Elements"), QKeySequence::Find, tr("Go to the filter"));

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
    offer(*undo_, tr("&Undo"), steps.undo);
    offer(*redo_, tr("&Redo"), steps.redo);
    copyGuid_->setEnabled(document_.isOpen() && elements_.current().has_value());
    find_->setEnabled(document_.isOpen());
}

void EditMenu::copyGuid() {
    const auto element = elements_.current();
    if (!element || !document_.isOpen()) return;
    const QString guid = guidText(document_.index()->guid(*element));
    QApplication::clipboard()->setText(guid);
    window_->statusBar()->showMessage(tr("Copied %1").arg(guid), 5000);
}

}  // namespace desktop
