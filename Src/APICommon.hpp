#pragma once
// Helpers that any command can use: reports, names of the host's numbers, clicks in the model window, menu marks, and
// some plane geometry. No state; nothing here reports a failure but through its result.

#include "HostTable.hpp"

// --- Reports -------------------------------------------------------------------------------------------------------
// A text that does not fit a buffer of 512 bytes with its end is cut.

/// A line for the developer, in the debug output.
__attribute__((format(printf, 1, 2))) void WriteReport(const char* format, ...);
/// An alert for the user, in the host's report.
__attribute__((format(printf, 1, 2))) void WriteReport_Alert(const char* format, ...);
/// An alert "info: err".
void WriteReport_Err(const char* info, int err);
/// The last line of a command's trace: "Error: err", or "OK" for 0.
void WriteReport_End(int err);
/// "info: err" in the debug output, and the system beep.
void ErrorBeep(const char* info, int err);

// --- Names ---------------------------------------------------------------------------------------------------------
// "???" for a number without a name. The text is constant and lives as long as the module.

const char* ErrID_To_Name(int err);
const char* LibID_To_Name(API_LibTypeID typeID);
const char* AttrID_To_Name(API_AttrTypeID typeID);
const char* ElemID_To_Name(API_ElemTypeID typeID);

// --- Clicks in the model window ------------------------------------------------------------------------------------
// `prompt` is cut to 255 bytes. A request that the user cancels is no error worth a report.

/// @param c  receives the clicked point. @return false where there is none; an error but the user's is reported.
bool ClickAPoint(const char* prompt, API_Coord* c);

/// Three clicks: start, end, bulge. The outputs may be null, and are left alone unless all three succeed.
/// @param negativeArc  whether the arc runs clockwise.
bool GetAnArc(const char* prompt, API_Coord* origo, API_Coord* startPoint, API_Coord* endPoint, bool* negativeArc);

/// One click on an element, or on empty space: then the nearest element of the type counts.
/// @param wantedType     0 accepts every element. @param clearPartFlag  forget which part of the element was hit.
/// @param neig, typeID, guid, c  what was hit, of which type, whose it is and where; each may be null. They are set
///                       whether or not the element is accepted, unless the request itself failed.
/// @return whether the element is of the wanted type.
bool ClickAnElem(const char* prompt, API_ElemTypeID wantedType, API_Neig* neig, API_ElemTypeID* typeID, API_Guid* guid,
                 API_Coord3D* c, bool clearPartFlag);

/// Clicks on elements until one is not accepted.
/// @param count  receives their number; may be null. Where memory ran out it is the number up to then.
/// @return a handle of API_Neig records that the caller frees, or null: none, or no memory.
GSHandle ClickElements_Neig(const char* prompt, API_ElemTypeID wantedType, int* count);

/// The same, as API_Elem_Head records of which only the GUID is filled.
GSHandle ClickElements_ElemHead(const char* prompt, API_ElemTypeID wantedType, int* count);

/// @return the type of the element that a neig identifier belongs to; 0 for an unknown one.
API_ElemTypeID Neig_To_ElemID(API_NeigID neigID);

/// @param elemHead  a header without a type is completed in place from its GUID, although it is passed as constant: it
///                  must not lie in read-only memory.
/// @return false for a type whose elements cannot be clicked; the neig then has the GUID alone.
bool ElemHead_To_Neig(API_Neig* neig, const API_Elem_Head* elemHead);

// --- The add-on's own menu -----------------------------------------------------------------------------------------
// `menuResID` is the menu's string list, `itemIndex` counts from 1.

bool GetMenuItemMark(short menuResID, short itemIndex);
/// @return whether the item is marked now.
bool InvertMenuItemMark(short menuResID, short itemIndex);
GSErrCode DisableEnableMenuItem(short menuResID, short itemIndex, bool disable);

// --- Plane geometry ------------------------------------------------------------------------------------------------
// Angles are in radians. A value below 1e-5 counts as zero, in whatever unit it is.

/// @return the index of the first arc that starts at vertex `node`, or -1. `arcs` may be null.
int FindArc(const API_PolyArc* arcs, int nArcs, int node);

/// The centre of the arc that runs by `angle` from start to end, counterclockwise where it is positive.
/// @return false for a straight one, and `origo` is (0, 0).
bool ArcGetOrigo(const API_Coord* startPoint, const API_Coord* endPoint, double angle, API_Coord* origo);

/// The direction from c1 to c2: from -pi to pi with `allowNegative`, else from 0 to 2 pi; 0 for points that are one.
double ComputeFiPtr(const API_Coord* c1, const API_Coord* c2, bool allowNegative);

double DistCPtr(const API_Coord* c1, const API_Coord* c2);
