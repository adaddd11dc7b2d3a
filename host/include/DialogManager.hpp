#pragma once
// DG: the host's dialog manager as an add-on sees it.
//
// The life of a modal dialog:
//   1. The add-on calls DGModalDialog. The host reads the layout from the add-on's resource module.
//   2. The handler gets DG_MSG_INIT, before the dialog shows.
//   3. The dialog shows. Each click gives DG_MSG_CLICK with the item's number, each change of size DG_MSG_RESIZE.
//      Return clicks item 1, Escape and the close box click item 2.
//   4. When the handler answers a click with a number other than 0, the dialog ends with that number as its result.
//   5. The handler gets DG_MSG_CLOSE; its answer is ignored. The dialog's items and rows are gone after it.
//
// Items, rows, columns (tab fields) and header items are numbered from 1; row -1 is the last row, as a position for an
// insertion it is the place after the last row. An unknown dialog, item, row or column is answered with
// DG_ERR_BADPARS, zero or an empty text, never with undefined behaviour. What returns a GSErrCode returns 0 or that
// code unless its declaration says more. Lengths are in the dialog's own unit, one pixel at 100 %; positions count from
// its upper left corner. Texts are copied; nothing given is kept.

#include "FileTypeManager.hpp"
#include "Location.hpp"
#include "ResourceManager.hpp"
#include "UniString.hpp"

using DGUserData = Int64;
using DGMessageData = Int64;

/// Messages of a dialog handler.
enum DGMessage : Int16 { DG_MSG_INIT = 1, DG_MSG_CLOSE = 2, DG_MSG_CLICK = 4, DG_MSG_RESIZE = 12 };

/// Item numbers with a meaning of their own.
enum DGStandardItem : Int16 { DG_OK = 1, DG_CANCEL = 2 };

/// For a position: after the last row. For a row: the last one.
inline constexpr Int16 DG_LIST_BOTTOM = -1;

/// Row status.
enum DGItemStatus : Int16 { DG_IS_ENABLE = 0, DG_IS_DISABLE = 2 };

inline constexpr GSErrCode DG_ERR_BADPARS = -1;
/// The list is full: it holds at most DG_LIST_MAX_ROWS rows, since a row number is a signed 16-bit value. The row was
/// not inserted; operations on row -1 go nowhere until an insertion succeeds again.
inline constexpr GSErrCode DG_ERR_LISTFULL = -2;
inline constexpr Int16 DG_LIST_MAX_ROWS = 32767;

/// The message data of a click on a list points at one; valid during the message.
struct DGListClick {
    Int16 row;  ///< The clicked row; 0 where no row was hit.
    Int16 x;    ///< Horizontal position in the list, from its left edge.
};

/// The message data of DG_MSG_RESIZE: the horizontal growth in the low 16 bits, the vertical in the next 16, signed.
constexpr Int16 DGResizeHorizontal(DGMessageData data) {
    return static_cast<Int16>(static_cast<UInt16>(data & 0xFFFF));
}
constexpr Int16 DGResizeVertical(DGMessageData data) {
    return static_cast<Int16>(static_cast<UInt16>(data >> 16 & 0xFFFF));
}

/// A dialog's message handler. `item` is the clicked item's number, 0 for messages without one.
/// @return for DG_MSG_CLICK the number that ends the dialog, or 0; ignored for every other message.
using DGDialogHandler = Int16 (*)(Int16 message, Int16 dialogId, Int16 item, DGUserData userData,
                                  DGMessageData messageData);

/// Runs a modal dialog to its end.
/// @param layoutModule  where dialog `resourceId` is defined. @param iconModule  where its icons are.
/// @param userData      handed to the handler with every message.
/// @return the number of the item that ended it; 0 where there is no such dialog.
HOST_API Int16 DGModalDialog(GSResModule layoutModule, Int16 resourceId, GSResModule iconModule,
                             DGDialogHandler handler, DGUserData userData);

// --- Items ---------------------------------------------------------------------------------------------------------

/// Sets the text of a button, an edit text or a static text.
HOST_API GSErrCode DGSetItemText(Int16 dialogId, Int16 item, const GS::UniString& text);
/// @return the item's text as it stands now, what the user has typed included.
HOST_API GS::UniString DGGetItemText(Int16 dialogId, Int16 item);
/// Asks for a redraw of the whole item.
HOST_API GSErrCode DGInvalidateItem(Int16 dialogId, Int16 item);

/// Between Begin and End the items move at once, without a redraw for each. A message that ends without its End ends
/// it.
HOST_API GSErrCode DGBeginMoveGrowItems(Int16 dialogId);
/// @return DG_ERR_BADPARS where nothing was begun, too.
HOST_API GSErrCode DGEndMoveGrowItems(Int16 dialogId);
/// Move an item, grow it to the right and below, or both; negative values the other way. No item gets smaller than
/// nothing or leaves the range of a signed 16-bit value.
HOST_API GSErrCode DGMoveItem(Int16 dialogId, Int16 item, Int16 moveH, Int16 moveV);
HOST_API GSErrCode DGGrowItem(Int16 dialogId, Int16 item, Int16 growH, Int16 growV);
HOST_API GSErrCode DGMoveGrowItem(Int16 dialogId, Int16 item, Int16 moveH, Int16 moveV, Int16 growH, Int16 growV);

// --- Lists ---------------------------------------------------------------------------------------------------------
// A row's text is cut into its cells at TABs: cell 1 is the text before the first TAB.

/// From here on changes of the list are not drawn.
HOST_API GSErrCode DGListDisableDraw(Int16 dialogId, Int16 item);
/// Draws once what has changed since. Harmless where drawing is enabled.
HOST_API GSErrCode DGListEnableDraw(Int16 dialogId, Int16 item);
/// The width of the list's rectangle.
HOST_API Int16 DGListGetItemWidth(Int16 dialogId, Int16 item);

/// @param count  up to 255. While it is 0 a row may have any cells up to that number.
HOST_API GSErrCode DGListSetTabFieldCount(Int16 dialogId, Int16 item, Int16 count);
/// @param begin, end  horizontal extent from the list's left edge, both inclusive.
/// @param justification  0 = left. @param truncation  0 = cut at the end.
/// @param separator  a line behind the field. @param status  whether the field is in use.
HOST_API GSErrCode DGListSetTabFieldData(Int16 dialogId, Int16 item, Int16 field, Int16 begin, Int16 end,
                                         Int16 justification, Int16 truncation, bool separator, bool status);
/// Any of the outputs may be null.
HOST_API GSErrCode DGListGetTabFieldData(Int16 dialogId, Int16 item, Int16 field, Int16* begin, Int16* end,
                                         Int16* justification, Int16* truncation, bool* separator, bool* status);

/// The titles above the columns. @param count  up to 255.
HOST_API GSErrCode DGListSetHeaderItemCount(Int16 dialogId, Int16 item, Int16 count);
/// @param visible  the header shows. @param movable  its items may be dragged. @param sortable  a click on one sorts.
HOST_API GSErrCode DGListSetHeaderFlags(Int16 dialogId, Int16 item, bool visible, bool movable, bool sortable);
/// @param clickable  the item acts as a button. @param truncated  its text is cut to its field.
HOST_API GSErrCode DGListSetHeaderItemFlags(Int16 dialogId, Int16 item, Int16 headerItem, bool clickable,
                                            bool truncated);
/// The title of a column.
HOST_API GSErrCode DGListSetHeaderItemText(Int16 dialogId, Int16 item, Int16 headerItem, const GS::UniString& text);

/// 0 to DG_LIST_MAX_ROWS.
HOST_API Int16 DGListGetItemCount(Int16 dialogId, Int16 item);
/// Inserts an empty row of status 0 before row `position`, at the end with DG_LIST_BOTTOM.
/// @return 0, DG_ERR_BADPARS (no such row to insert before) or DG_ERR_LISTFULL.
HOST_API GSErrCode DGListInsertItem(Int16 dialogId, Int16 item, Int16 position);
/// Sets all cells of a row: the texts between TABs.
HOST_API GSErrCode DGListSetItemText(Int16 dialogId, Int16 item, Int16 row, const GS::UniString& text);
/// @param status  a DGItemStatus; the host shows a disabled row as such and delivers clicks on it all the same.
HOST_API GSErrCode DGListSetItemStatus(Int16 dialogId, Int16 item, Int16 row, Int16 status);
/// 0 for an unknown row.
HOST_API Int16 DGListGetItemStatus(Int16 dialogId, Int16 item, Int16 row);
/// Components from 0 to 0xFFFF.
HOST_API GSErrCode DGListSetItemColor(Int16 dialogId, Int16 item, Int16 row, UInt16 red, UInt16 green, UInt16 blue);
/// Replaces one cell; in a row of too few cells empty ones come before it. A TAB in the text begins a further cell.
HOST_API GSErrCode DGListSetTabItemText(Int16 dialogId, Int16 item, Int16 row, Int16 field, const GS::UniString& text);
/// @return the cell's text; empty for a cell that the row does not have.
HOST_API GS::UniString DGListGetTabItemText(Int16 dialogId, Int16 item, Int16 row, Int16 field);

// --- System dialogs ------------------------------------------------------------------------------------------------

namespace DG {

/// The common part of the host's own dialogs.
class HOST_API SystemDialog {
public:
    SystemDialog(const SystemDialog&) = delete;
    SystemDialog& operator=(const SystemDialog&) = delete;
    virtual ~SystemDialog();

    void SetTitle(const GS::UniString& text) { title_ = text; }
    /// Shows the dialog. @return true: the user confirmed; false: cancelled, or nobody is there to answer.
    virtual bool Invoke() = 0;

protected:
    SystemDialog() = default;
    GS::UniString title_;
};

/// Lets the user pick a file.
class HOST_API FileDialog : public SystemDialog {
public:
    enum Type : Int32 { OpenFile = 0 };

    explicit FileDialog(Type type);
    ~FileDialog() override;

    /// Offers a registered file type. @param options  0.
    /// @return the filter's index, for SelectFilter; MaxUIndex for an unknown type.
    UIndex AddFilter(FTM::TypeID type, Int32 options = 0);
    /// Makes a filter the current one. Any file can be picked all the same.
    void SelectFilter(UIndex index);

    bool Invoke() override;

    /// @return the file picked; an empty location before the user confirmed and for an unknown index.
    const IO::Location& GetSelectedFile(UIndex index = 0) const;

private:
    struct Content;
    Content* content_;
};

/// Adds a folder to the host's help menu, under an identifier pair of the add-on's. The host keeps the address of
/// `location`: it must live until UnregisterAdditionalHelpLocation. The trailing arguments are optional (null).
/// @return false for a null or empty location or a pair that is registered already.
HOST_API bool RegisterAdditionalHelpLocation(UInt32 developerId, Int32 localId, const IO::Location* location,
                                             const GS::UniString* menuText, const GS::UniString* indexFile,
                                             const IO::Location* secondLocation, const GS::UniString* secondIndexFile);
/// @return false for a pair that is not registered.
HOST_API bool UnregisterAdditionalHelpLocation(UInt32 developerId, Int32 localId);

}  // namespace DG
