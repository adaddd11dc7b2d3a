#include "desktop/window/AddOnMenu.hpp"

#include "desktop/QtText.hpp"
#include "desktop/WaitCursor.hpp"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace desktop {

namespace {

/// An ampersand in an add-on's text is a letter, not the mark of a shortcut key.
QString asMenuText(const GS::UniString& text) {
    return toQString(text).replace(u'&', QStringLiteral("&&"));
}

}  // namespace

AddOnMenu::AddOnMenu(QMainWindow* window, host::Host& host, Document& document, Busy& busy)
    : QObject(window), window_(window), host_(host), document_(document), busy_(busy) {
    connect(&busy_, &Busy::changed, this, &AddOnMenu::update);
    connect(&document_, &Document::fileChanged, this, &AddOnMenu::update);
}

void AddOnMenu::rebuild() {
    // Later, since one of these menus may be what called.
    for (QMenu* menu : menus_) menu->deleteLater();
    menus_.clear();
    entries_.clear();
    for (const host::Menu& registered : host_.menus()) {
        QMenu* menu = window_->menuBar()->addMenu(asMenuText(registered.title));
        menus_.push_back(menu);
        for (std::size_t i = 0; i < registered.items.size(); ++i) {
            const host::MenuItem& item = registered.items[i];
            QAction* action = menu->addAction(asMenuText(item.text));
            action->setStatusTip(toQString(item.prompt));
            const Int16 number = registered.menuStrResID;
            const auto index = static_cast<Int32>(i + 1);
            connect(action, &QAction::triggered, this, [this, number, index] { pick(number, index); });
            entries_.push_back({number, index, action});
        }
    }
    update();
}

QAction* AddOnMenu::action(Int16 menuStrResID, Int32 itemIndex) const {
    for (const Entry& entry : entries_) {
        if (entry.menu == menuStrResID && entry.item == itemIndex) return entry.action;
    }
    return nullptr;
}

/// The add-on may change its items in any of its commands. Without a model none of them has anything to work on.
void AddOnMenu::update() {
    const bool free = document_.isOpen() && !busy_.active();
    for (const host::Menu& menu : host_.menus()) {
        for (std::size_t i = 0; i < menu.items.size(); ++i) {
            QAction* item = action(menu.menuStrResID, static_cast<Int32>(i + 1));
            if (!item) continue;
            item->setEnabled(free && menu.items[i].enabled);
            // An item without a mark must not look like one that can be marked.
            item->setCheckable(menu.items[i].checked);
            item->setChecked(menu.items[i].checked);
        }
    }
}

void AddOnMenu::pickAgain() {
    if (lastItem_ > 0) pick(lastMenu_, lastItem_);
}

void AddOnMenu::pick(Int16 menu, Int32 item) {
    if (busy_.active()) return;
    lastMenu_ = menu;
    lastItem_ = item;
    GSErrCode error = NoError;
    {
        const Busy::Guard guard(busy_);
        const WaitCursor wait;
        error = host_.pickMenuItem(menu, item);
    }
    // After the guard is gone, so that the windows show the new state with the commands open again.
    document_.noteCommand();
    update();
    Q_EMIT commandEnded(error);
}

}  // namespace desktop
