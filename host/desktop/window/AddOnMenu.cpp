#include "desktop/window/AddOnMenu.hpp"

#include "desktop/QtText.hpp"
#include "desktop/WaitCursor.hpp"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace desktop {

namespace {

/// The add-on's text with a key of its own among its neighbours: its first letter that none of them has. An ampersand
/// in the text is a letter, not the mark of such a key.
QString asMenuText(const GS::UniString& text, QString& keys) {
    QString marked = toQString(text).replace(u'&', QStringLiteral("&&"));
    for (qsizetype i = 0; i < marked.size(); ++i) {
        const QChar key = marked[i].toLower();
        if (!key.isLetterOrNumber() || keys.contains(key)) continue;
        keys += key;
        return marked.insert(i, u'&');
    }
    return marked;
}

/// The keys that the texts of a menu, or of the menu bar, have already.
QString keysOf(const QList<QAction*>& actions) {
    QString keys;
    for (const QAction* action : actions) {
        const qsizetype mark = action->text().indexOf(u'&');
        if (mark >= 0 && mark + 1 < action->text().size()) keys += action->text()[mark + 1].toLower();
    }
    return keys;
}

constexpr QKeyCombination Shortcuts[] = {Qt::CTRL | Qt::Key_I, Qt::CTRL | Qt::Key_L};

}  // namespace

AddOnMenu::AddOnMenu(QMainWindow* window, host::Host& host, Document& document, Busy& busy)
    : QObject(window), window_(window), host_(host), document_(document), busy_(busy) {
    connect(&busy_, &Busy::changed, this, &AddOnMenu::update);
    connect(&document_, &Document::fileChanged, this, &AddOnMenu::update);
}

void AddOnMenu::rebuild() {
    // Later, since one of these menus may be what called.
    for (QMenu* menu : menus_) menu->deleteLater();
    for (const QMenu* menu : menus_) window_->menuBar()->removeAction(menu->menuAction());
    menus_.clear();
    entries_.clear();
    QString titleKeys = keysOf(window_->menuBar()->actions());
    for (const host::Menu& registered : host_.menus()) {
        QMenu* menu = window_->menuBar()->addMenu(asMenuText(registered.title, titleKeys));
        QString keys;
        menus_.push_back(menu);
        for (std::size_t i = 0; i < registered.items.size(); ++i) {
            const host::MenuItem& item = registered.items[i];
            QAction* action = menu->addAction(asMenuText(item.text, keys));
            action->setStatusTip(toQString(item.prompt));
            const Int16 number = registered.menuStrResID;
            const auto index = static_cast<Int32>(i + 1);
            connect(action, &QAction::triggered, this, [this, number, index] { pick(number, index); });
            if (entries_.size() < std::size(Shortcuts)) action->setShortcut(Shortcuts[entries_.size()]);
            entries_.push_back({number, index, action});
        }
    }
    update();
    Q_EMIT rebuilt();
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
