#pragma once
// What the frameworks need of a front end, and what they let it see and do: the host's own side of the dialog manager.
// Add-ons never include this header.
//
// The dialog manager owns the dialogs, their items, rows and geometry, and delivers messages to the add-on's handler. A
// front end shows them and brings the user's actions back. It implements View; each action is one call on Dialog, which
// delivers the message before it returns. The life of a dialog is told in DialogManager.hpp.
//
// Everything here happens on the user's thread. References and pointers to dialogs, items and lists are valid until the
// dialog's handler has got DG_MSG_CLOSE; those into a list's rows and fields until the list changes. Lengths are in
// dialog units, one pixel at 100 %.

#include "DialogManager.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace frontend {

/// What an item is, and so which of the user's actions it takes: a Button is clicked, an EditText is typed into, a List
/// is clicked in, a StaticText takes none.
enum class ItemKind : std::uint8_t { Button, EditText, StaticText, List };

/// Left and top inclusive, right and bottom exclusive; in dialog units from the dialog's upper left corner.
struct Rect {
    int left = 0, top = 0, right = 0, bottom = 0;
    int width() const { return right - left; }
    int height() const { return bottom - top; }
    friend bool operator==(const Rect&, const Rect&) = default;
};

/// A column of a list, as DGListSetTabFieldData sets it.
struct TabField {
    Int16 begin = 0, end = 0;                 ///< Both inclusive, from the list's left edge.
    Int16 justification = 0, truncation = 0;  ///< 0 = left; 0 = cut at the end.
    bool separator = false, status = false;
    friend bool operator==(const TabField&, const TabField&) = default;
};

/// A title above a column.
struct HeaderItem {
    GS::UniString text;
    bool clickable = false, truncated = false;
};

/// From 0 to 0xFFFF each.
struct Color {
    UInt16 red = 0, green = 0, blue = 0;
    friend bool operator==(const Color&, const Color&) = default;
};

/// A list's content. Rows and fields are numbered from 1 in every call.
class HOST_API List {
public:
    Int16 rowCount() const { return static_cast<Int16>(rows_.size()); }
    GS::UniString cell(Int16 row, Int16 field) const;  ///< Empty for an unknown row or field.
    GS::UniString rowText(Int16 row) const;            ///< The cells joined by TABs.
    Int16 status(Int16 row) const;                     ///< A DGItemStatus; 0 for an unknown row.
    std::optional<Color> color(Int16 row) const;       ///< Nothing: the front end's own colour, or an unknown row.

    /// The columns and their titles, from the left. There may be more of the one than of the other.
    const std::vector<TabField>& tabFields() const { return fields_; }
    const std::vector<HeaderItem>& header() const { return headerItems_; }
    bool headerVisible() const { return visibleHeader_; }
    bool headerMovable() const { return movableHeader_; }
    bool headerSortable() const { return sortableHeader_; }

    /// How many insertions the full list has refused.
    std::uint64_t rowsLost() const { return lost_; }
    /// False while the add-on fills the list: what it holds until then is not to be shown.
    bool drawingEnabled() const { return drawing_; }

private:
    friend struct DialogAccess;
    struct Row {
        GS::UniString text;
        Int16 status = 0;
        std::optional<Color> color;
    };
    std::vector<Row> rows_;
    std::vector<TabField> fields_;
    std::vector<HeaderItem> headerItems_;
    std::uint64_t lost_ = 0;
    bool lastInsertionLost_ = false;
    bool visibleHeader_ = false, movableHeader_ = false, sortableHeader_ = false;
    bool drawing_ = true;
};

/// Something in a dialog.
struct Item {
    Int16 number = 0;  ///< From 1, unique in its dialog.
    ItemKind kind = ItemKind::StaticText;
    Rect rect;
    GS::UniString text;  ///< A button's or a static text's caption; what stands in an edit text. Empty for a list.
    std::unique_ptr<List> list;  ///< For ItemKind::List only.
};

/// An open modal dialog. Lives from before DG_MSG_INIT until DGModalDialog returns.
class HOST_API Dialog {
public:
    Int16 id() const { return dialogId_; }          ///< What the add-on calls it by; unique among the open ones.
    Int16 resourceId() const { return resource_; }  ///< The number of its layout.
    const GS::UniString& title() const { return titleText_; }
    /// The size as it is now, and the one that it never gets below. One that is not growable has no other.
    int width() const { return currentWidth_; }
    int height() const { return currentHeight_; }
    bool growable() const { return canGrow_; }
    int minimumWidth() const { return leastWidth_; }
    int minimumHeight() const { return leastHeight_; }

    /// In order of their numbers.
    const std::vector<Item>& items() const { return allItems_; }
    /// Null for the number of no item; of no list.
    const Item* item(Int16 number) const;
    const List* list(Int16 number) const;

    /// True once the handler ended the dialog; no further action has an effect.
    bool ended() const { return hasEnded_; }
    /// What the handler answered to the last click: 0 unless that ended the dialog.
    Int16 result() const { return endResult_; }

    // The user's actions. Each returns false, and does nothing, where the dialog has ended, where its handler is at
    // work on a message (a dialog that it opened is in front then) or where the item is not of the kind that takes the
    // action.

    /// Clicks a button.
    bool clickItem(Int16 number);
    /// A click in a list. @param row  0 for the empty space below the rows. @param x  from the list's left edge.
    bool clickRow(Int16 number, Int16 row, Int16 x);
    /// Sets the whole text of an edit text. No message tells the handler.
    bool typeText(Int16 number, const GS::UniString& text);
    /// Grows (or shrinks) the dialog; never below its minimum size: the growth delivered is what was possible. Where
    /// that is nothing, no message is. @return false for a dialog of fixed size, too.
    bool resize(int horizontal, int vertical);
    bool pressReturn() { return clickItem(DG_OK); }
    bool pressEscape() { return clickItem(DG_CANCEL); }

private:
    friend struct DialogAccess;
    Int16 dialogId_ = 0, resource_ = 0;
    GS::UniString titleText_;
    int currentWidth_ = 0, currentHeight_ = 0, leastWidth_ = 0, leastHeight_ = 0;
    bool canGrow_ = false;
    std::vector<Item> allItems_;
    DGDialogHandler handler_ = nullptr;
    DGUserData userData_ = 0;
    bool isShown_ = false;      ///< A view knows of it.
    bool inMessage_ = false;    ///< The handler is at work.
    bool handlerGone_ = false;  ///< It did not come to the end of a message.
    bool moving_ = false;       ///< Between DGBeginMoveGrowItems and its end.
    bool hasEnded_ = false;
    Int16 endResult_ = 0;
};

/// A kind of file that a file dialog offers. Any other file may be picked all the same.
struct FileFilter {
    GS::UniString description;
    GS::UniString extension;  ///< Without the point.
};

/// What an add-on asks the user when it asks for a file.
struct FileRequest {
    GS::UniString title;
    std::vector<FileFilter> filters;
    std::size_t currentFilter = 0;  ///< Into `filters`, where there are any.
};

/// A front end's part. All calls come on the user's thread, from inside an add-on's command.
class HOST_API View {
public:
    virtual ~View();

    /// Shows the dialog and brings the user's actions until dialog.ended(). Called after DG_MSG_INIT. A dialog that is
    /// still open when this returns is closed as by Escape; if its handler refuses even that, it is ended with 0.
    virtual void runModal(Dialog& dialog) = 0;

    /// Lets the user pick a file. @return its path, or nothing: cancelled.
    virtual std::optional<std::string> pickFile(const FileRequest& request) = 0;

    /// Something in the dialog changed: an item's text or place, or a list's content. Not called between
    /// DGListDisableDraw and DGListEnableDraw, nor for each item between DGBeginMoveGrowItems and its end, but once
    /// after them; and not before runModal. The handler is at work: what the user does during it is refused.
    /// @param item  0 = more than one.
    virtual void changed(Dialog& dialog, Int16 item);
};

/// Puts a front end in charge, not owned; null (the state at start) means nobody is there: a modal dialog is closed
/// right after its initialisation, a file dialog is cancelled. @return the one before.
HOST_API View* setView(View* view);

/// The open dialogs, the innermost last.
HOST_API const std::vector<Dialog*>& openDialogs();

/// Where debug output goes; an empty function (the state at start) drops it. @return the one before.
using DebugSink = std::function<void(const char* text)>;
HOST_API DebugSink setDebugSink(DebugSink sink);

/// Told of each file that an add-on could not open or not read to its end, with the system's error number: an add-on
/// may take that for the end of the file. Called inside the add-on's call, so it must not throw. An empty function (the
/// state at start) drops it. @return the one before.
using FileErrorSink = std::function<void(const std::string& path, int error)>;
HOST_API FileErrorSink setFileErrorSink(FileErrorSink sink);

/// The system beep; an empty function (the state at start) writes BEL to standard error if that is a terminal.
using BeepSink = std::function<void()>;
HOST_API BeepSink setBeepSink(BeepSink sink);

/// The help folders that add-ons have registered, for the host's help menu.
struct HelpLocation {
    UInt32 developerId;
    Int32 localId;
    std::string path;
};
HOST_API std::vector<HelpLocation> helpLocations();

/// How the dialog manager calls an add-on's handler: `call(argument)` runs it to its end. The host's services put
/// theirs in, so that no exception and no crash of a handler passes through the frames of the front end.
/// @return false where the handler did not come to its end: the dialog is then over, with result 0, and its handler
///         gets no further message.
using AddOnCaller = bool (*)(void (*call)(void* argument), void* argument);
/// Null (the state at start) means that the handler is called as it is. @return the one before.
HOST_API AddOnCaller setAddOnCaller(AddOnCaller caller);

/// The texts of a string list, in order; empty where there is no such list. For menus.
HOST_API std::vector<GS::UniString> stringList(GSResModule module, Int32 resID);
/// The title of a menu; empty where there is no such menu.
HOST_API GS::UniString menuTitle(GSResModule module, Int32 resID);

/// How many Core Foundation objects are alive; what was created and not released is a leak.
HOST_API std::size_t liveCoreFoundationObjects();

/// While deferred, GSRoot_DelayInitImage answers true; runDelayedStarts ends that state and calls the hooks kept.
HOST_API void deferImageStarts(bool defer);
HOST_API void runDelayedStarts();

}  // namespace frontend
