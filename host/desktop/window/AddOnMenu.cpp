#include "desktop/window/AddOnMenu.hpp"

#include "desktop/Text.hpp"
#include "desktop/WaitCursor.hpp"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace desktop {

namespace {

QString asMenuText(const GS::UniString& text) {
    return toQString(text).replace(u'&', QStringLiteral("&&"));
}

}  // namespace

AddOnMenu::AddOnMenu(QMainWindow* owner, host::Host& shared, Document& shown, Busy& sharedBusy)
    : QObject(owner), window(owner), host(shared), document(shown), busy(sharedBusy) {
    connect(&busy, &Busy::changed, this, &AddOnMenu::update);
    connect(&document, &Document::fileChanged, this, &AddOnMenu::update);
}

void AddOnMenu::rebuild() {
    for (QMenu* menu : menus) menu->deleteLater();
    menus.clear();
    entries.clear();
    for (const host::Menu& registered : host.menus()) {
        QMenu* menu = window->menuBar()->addMenu(asMenuText(registered.title));
        menus.push_back(menu);
        for (std::size_t i = 0; i < registered.items.size(); ++i) {
            const host::MenuItem& item = registered.items[i];
            QAction* action = menu->addAction(asMenuText(item.text));
            action->setStatusTip(toQString(item.prompt));
            const Int16 number = registered.menuStrResID;
            const auto index = static_cast<Int32>(i + 1);
            connect(action, &QAction::triggered, this, [this, number, index] { pick(number, index); });
            entries.push_back({number, index, action});
        }
    }
    update();
}

QAction* AddOnMenu::action(Int16 menuStrResID, Int32 itemIndex) const {
    for (const Entry& entry : entries) {
        if (entry.menu == menuStrResID && entry.item == itemIndex) return entry.action;
    }
    return nullptr;
}

/// The add-on may change its items in any of its commands. Without a model none of them has anything to work on.
void AddOnMenu::update() {
    const bool free = document.isOpen() && !busy.active();
    for (const host::Menu& menu : host.menus()) {
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

void AddOnMenu::pick(Int16 menu, Int32 item) {
    if (busy.active()) return;
    GSErrCode error = NoError;
    {
        const Busy::Guard guard(busy);
        const WaitCursor wait;
        error = host.pickMenuItem(menu, item);
    }
    document.noteCommand();
    update();
    Q_EMIT commandEnded(error);
}

}  // namespace desktop
