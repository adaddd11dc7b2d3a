#pragma once
// What the dialog manager does to the dialogs and lists that a front end only looks at.

#include "FrontEnd.hpp"

namespace frameworks {
struct DialogDefinition;
}

namespace frontend {

/// Most tab fields or header items of a list.
inline constexpr Int16 MostFields = 255;

/// The front end in charge, or null.
View* currentView();

/// @return false where the handler did not come to its end.
bool callAddOn(void (*call)(void* argument), void* argument);
template <class Call>
bool callAddOn(Call& call) {
    return callAddOn([](void* argument) { (*static_cast<Call*>(argument))(); }, &call);
}

struct DialogAccess {
    using Row = List::Row;

    // --- Lists ---
    /// @return null for an unknown row, and for row -1 while the last insertion is one that a full list refused.
    static Row* row(List& list, Int16 number);
    static const Row* row(const List& list, Int16 number) { return row(const_cast<List&>(list), number); }
    static GSErrCode insertRow(List& list, Int16 position);
    /// A list without tab fields takes any column up to MostFields.
    static bool knowsField(const List& list, Int16 field);
    static TabField* tabField(List& list, Int16 number);
    static HeaderItem* headerItem(List& list, Int16 number);
    static bool setTabFieldCount(List& list, Int16 count);
    static bool setHeaderItemCount(List& list, Int16 count);
    static void setHeaderFlags(List& list, bool visible, bool movable, bool sortable);
    static void setDrawing(List& list, bool enabled) { list.drawing_ = enabled; }

    // --- Dialogs ---
    static Dialog create(const frameworks::DialogDefinition& definition, Int16 resourceId, DGDialogHandler handler,
                         DGUserData userData);
    /// Takes the dialog from its initialisation to its end. @return its result.
    static Int16 run(Dialog& dialog);
    /// @return null for the number of no open dialog.
    static Dialog* find(Int16 dialogId);
    static Item* item(Dialog& dialog, Int16 number);
    static List* list(Dialog& dialog, Int16 number);
    static bool takesActions(const Dialog& dialog) { return !dialog.hasEnded_ && !dialog.inMessage_; }
    static Int16 deliver(Dialog& dialog, Int16 message, Int16 item, DGMessageData data);
    static bool click(Dialog& dialog, Int16 item, DGMessageData data);

    static void beginMoving(Dialog& dialog) { dialog.moving_ = true; }
    /// @return false where nothing was begun.
    static bool endMoving(Dialog& dialog);
    /// Tells the view, now or when a pause in drawing ends.
    static void changed(Dialog& dialog, Int16 item);
};

}  // namespace frontend
