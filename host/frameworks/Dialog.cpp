// An open dialog: its life, its messages and the user's actions.

#include "DialogAccess.hpp"
#include "NeverDestroyed.hpp"
#include "ResourceModule.hpp"

#include <algorithm>
#include <limits>

namespace frontend {

namespace {

constexpr int MostSize = std::numeric_limits<Int16>::max();

std::vector<Dialog*>& dialogStack() {
    static auto& dialogs = frameworks::neverDestroyed<std::vector<Dialog*>>();
    return dialogs;
}

/// A number that no open dialog has and, as far as the numbers go round, no recent one had.
Int16 nextDialogId() {
    static Int16 last = 0;
    do {
        last = last == std::numeric_limits<Int16>::max() ? Int16{1} : static_cast<Int16>(last + 1);
    } while (DialogAccess::find(last) != nullptr);
    return last;
}

/// Keeps a dialog among the open ones, also when a handler or a view throws.
class OpenDialog {
public:
    explicit OpenDialog(Dialog& dialog) { dialogStack().push_back(&dialog); }
    OpenDialog(const OpenDialog&) = delete;
    OpenDialog& operator=(const OpenDialog&) = delete;
    ~OpenDialog() { dialogStack().pop_back(); }
};

/// Sets a flag for as long as it lives.
class Raised {
public:
    explicit Raised(bool& raised) : flag_(raised) { flag_ = true; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;
    ~Raised() { flag_ = false; }

private:
    bool& flag_;
};

DGMessageData resizeData(int horizontal, int vertical) {
    return static_cast<DGMessageData>(static_cast<UInt16>(horizontal)) |
           static_cast<DGMessageData>(static_cast<UInt16>(vertical)) << 16;
}

/// The items stand in the order of their numbers.
template <class Items>
auto itemNumbered(Items& items, Int16 number) {
    const auto found = std::lower_bound(items.begin(), items.end(), number,
                                        [](const Item& item, Int16 sought) { return item.number < sought; });
    return found == items.end() || found->number != number ? nullptr : &*found;
}

}  // namespace

const std::vector<Dialog*>& openDialogs() {
    return dialogStack();
}

const Item* Dialog::item(Int16 number) const {
    return itemNumbered(allItems_, number);
}

const List* Dialog::list(Int16 number) const {
    const Item* const found = item(number);
    return found == nullptr ? nullptr : found->list.get();
}

bool Dialog::clickItem(Int16 number) {
    const Item* const clicked = item(number);
    if (clicked == nullptr || clicked->kind != ItemKind::Button) return false;
    return DialogAccess::click(*this, number, 0);
}

bool Dialog::clickRow(Int16 number, Int16 row, Int16 x) {
    const List* const clicked = list(number);
    if (clicked == nullptr || row < 0 || row > clicked->rowCount()) return false;
    const DGListClick place{row, x};
    return DialogAccess::click(*this, number, reinterpret_cast<DGMessageData>(&place));
}

bool Dialog::typeText(Int16 number, const GS::UniString& text) {
    Item* const target = itemNumbered(allItems_, number);
    if (!DialogAccess::takesActions(*this) || target == nullptr || target->kind != ItemKind::EditText) return false;
    target->text = text;
    return true;
}

bool Dialog::resize(int horizontal, int vertical) {
    if (!DialogAccess::takesActions(*this) || !canGrow_) return false;
    const auto grown = [](int size, int growth, int least) {
        return static_cast<int>(std::clamp<Int64>(Int64{size} + growth, least, MostSize));
    };
    const int width = grown(currentWidth_, horizontal, leastWidth_);
    const int height = grown(currentHeight_, vertical, leastHeight_);
    const DGMessageData growth = resizeData(width - currentWidth_, height - currentHeight_);
    currentWidth_ = width;
    currentHeight_ = height;
    if (growth != 0) DialogAccess::deliver(*this, DG_MSG_RESIZE, 0, growth);
    return true;
}

Dialog DialogAccess::create(const frameworks::DialogDefinition& definition, Int16 resourceId, DGDialogHandler handler,
                            DGUserData userData) {
    Dialog dialog;
    dialog.dialogId_ = nextDialogId();
    dialog.resource_ = resourceId;
    dialog.titleText_ = definition.title;
    dialog.currentWidth_ = definition.width;
    dialog.currentHeight_ = definition.height;
    dialog.leastWidth_ = definition.minimumWidth;
    dialog.leastHeight_ = definition.minimumHeight;
    dialog.canGrow_ = definition.growable;
    dialog.handler_ = handler;
    dialog.userData_ = userData;
    for (const auto& [number, item] : definition.items) {
        auto list = item.kind == ItemKind::List ? std::make_unique<List>() : nullptr;
        dialog.allItems_.push_back({number, item.kind, item.rect, item.text, std::move(list)});
    }
    return dialog;
}

Int16 DialogAccess::run(Dialog& dialog) {
    const OpenDialog open(dialog);
    deliver(dialog, DG_MSG_INIT, 0, 0);
    if (View* const view = currentView(); view != nullptr && !dialog.hasEnded_) {
        dialog.isShown_ = true;
        view->runModal(dialog);
        dialog.isShown_ = false;
    }
    if (!dialog.hasEnded_) dialog.pressEscape();
    dialog.hasEnded_ = true;
    deliver(dialog, DG_MSG_CLOSE, 0, 0);
    return dialog.endResult_;
}

Dialog* DialogAccess::find(Int16 dialogId) {
    const auto& dialogs = dialogStack();
    const auto found =
        std::find_if(dialogs.rbegin(), dialogs.rend(), [dialogId](const Dialog* it) { return it->id() == dialogId; });
    return found == dialogs.rend() ? nullptr : *found;
}

Item* DialogAccess::item(Dialog& dialog, Int16 number) {
    return itemNumbered(dialog.allItems_, number);
}

List* DialogAccess::list(Dialog& dialog, Int16 number) {
    Item* const found = item(dialog, number);
    return found == nullptr ? nullptr : found->list.get();
}

Int16 DialogAccess::deliver(Dialog& dialog, Int16 message, Int16 item, DGMessageData data) {
    if (dialog.handlerGone_) return 0;
    Int16 answer = 0;
    auto call = [&] { answer = dialog.handler_(message, dialog.dialogId_, item, dialog.userData_, data); };
    {
        const Raised atWork(dialog.inMessage_);
        dialog.handlerGone_ = !callAddOn(call);
    }
    if (dialog.handlerGone_) {
        dialog.hasEnded_ = true;
        answer = 0;
    }
    // A handler that forgot DGEndMoveGrowItems must not leave the view blind to everything that follows.
    endMoving(dialog);
    return answer;
}

bool DialogAccess::click(Dialog& dialog, Int16 item, DGMessageData data) {
    if (!takesActions(dialog)) return false;
    dialog.endResult_ = deliver(dialog, DG_MSG_CLICK, item, data);
    dialog.hasEnded_ = dialog.hasEnded_ || dialog.endResult_ != 0;
    return true;
}

bool DialogAccess::endMoving(Dialog& dialog) {
    if (!dialog.moving_) return false;
    dialog.moving_ = false;
    changed(dialog, 0);
    return true;
}

void DialogAccess::changed(Dialog& dialog, Int16 item) {
    if (!dialog.isShown_ || dialog.moving_) return;
    const List* const itsList = list(dialog, item);
    if (itsList != nullptr && !itsList->drawing_) return;
    if (View* const view = currentView()) view->changed(dialog, item);
}

}  // namespace frontend
