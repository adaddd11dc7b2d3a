#include "APICommon.hpp"

#include "ACAPlib.hpp"
#include "Memory.hpp"

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <numbers>

// --- Reports -------------------------------------------------------------------------------------------------------

static constexpr std::size_t ReportSize = 512;

__attribute__((format(printf, 1, 2))) void WriteReport(const char* format, ...) {
    char buffer[ReportSize];
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(buffer, sizeof buffer, format, arguments);
    va_end(arguments);

    // The text becomes a format itself.
    GS::UniString text = buffer;
    text.ReplaceAll("%", "%%");
    DBPrintf(text.ToCStr());
    DBPrintf("\n");
}

__attribute__((format(printf, 1, 2))) void WriteReport_Alert(const char* format, ...) {
    char buffer[ReportSize];
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(buffer, sizeof buffer, format, arguments);
    va_end(arguments);
    ACAPI_WriteReport(buffer, true);
}

void WriteReport_Err(const char* info, int err) {
    char buffer[ReportSize];
    std::snprintf(buffer, sizeof buffer, "%s: %d", info, err);
    ACAPI_WriteReport(buffer, true);
}

void WriteReport_End(int err) {
    DBPrintf("\n");
    if (err != 0) {
        DBPrintf("Error: %d\n", err);
    } else {
        DBPrintf("OK\n");
    }
}

void ErrorBeep(const char* info, int err) {
    DBPrintf("%s: %d", info, err);
    GSSysBeep();
}

// --- Names ---------------------------------------------------------------------------------------------------------

static constexpr const char* UnknownName = "???";

using NameSlot = char[32];

static const NameSlot LibNames[] = {
    "Zombie",   "Spec",     "Window", "Door",  "Object", "Lamp",        "Room",
    "Property", "PlanSign", "Label",  "Macro", "Pict",   "List Scheme", "Skylight",
};
static_assert(std::size(LibNames) == 14);

static const NameSlot AttrNames[] = {
    "Zombie",
    "Pen",
    "Layer",
    "Linetype",
    "Filltype",
    "CompWall",
    "Material",
    "City",
    "LayerComb",
    "ZoneCat",
    "Font",
    "Profile",
    "Pen table",
    "Dimension style",
    "Model View options",
    "MEP System",
    "Operation Profile",
    "Graphic Override",
    "Building Material",
};
static_assert(std::size(AttrNames) == 19);

static const NameSlot ElemNames[] = {
    "Zombie",
    "Wall",
    "Column",
    "Beam",
    "Window",
    "Door",
    "Object",
    "Lamp",
    "Slab",
    "Roof",
    "Mesh",
    "Dimension",
    "Radial Dimension",
    "Level Dimension",
    "Angle Dimension",
    "Text",
    "Label",
    "Zone",
    "Hatch",
    "Line",
    "Polyline",
    "Arc",
    "Circle",
    "Spline",
    "Hotspot",
    "Cut Plane",
    "Camera",
    "CamSet",
    "Group",
    "Section Element",
    "Drawing",
    "Picture",
    "Detail Drawing",
    "Elevation",
    "InteriorElevation",
    "Worksheet",
    "Hotlink",
    "CurtainWall",
    "CurtainWall Segment",
    "CurtainWall Frame",
    "CurtainWall Panel",
    "CurtainWall Junction",
    "CurtainWall Accessory",
    "Shell",
    "Skylight",
    "Morph",
    "Change Marker",
};
static_assert(std::size(ElemNames) == 47);

template <std::size_t count>
static const char* nameOf(const NameSlot (&names)[count], Int32 value) {
    return value >= 0 && value < static_cast<Int32>(count) ? names[value] : UnknownName;
}

const char* ErrID_To_Name(int err) {
    switch (err) {
#define APIERR(name, number) \
    case name:               \
        return #name;
#include "APIErrors.def"
#undef APIERR
        default:
            return UnknownName;
    }
}

const char* LibID_To_Name(API_LibTypeID typeID) {
    return nameOf(LibNames, typeID);
}

const char* AttrID_To_Name(API_AttrTypeID typeID) {
    return nameOf(AttrNames, typeID);
}

const char* ElemID_To_Name(API_ElemTypeID typeID) {
    return nameOf(ElemNames, typeID);
}

// --- Clicks in the model window ------------------------------------------------------------------------------------

static constexpr API_ElemTypeID SectionElementType = 29;

static API_Coord ToCoord(const API_Coord3D& point) {
    return {point.x, point.y};
}

/// One of the host's requests to the user: 'IPOI', 'ILIN' or 'IARC' with its record.
template <class Record>
static GSErrCode askUser(UInt32 code, const char* prompt, Record* record) {
    CHTruncate(prompt, record->prompt, sizeof record->prompt);
    return ACAPI_Interface(code, record, nullptr, nullptr);
}

bool ClickAPoint(const char* prompt, API_Coord* c) {
    API_GetPointType point{};
    const GSErrCode error = askUser(APIIo_GetPoint, prompt, &point);
    if (error != NoError && error != APIERR_CANCEL) WriteReport_Alert("Error in APICmd_GetPointID: %d", error);
    if (error != NoError) return false;
    *c = ToCoord(point.pos);
    return true;
}

static bool askForArc(const char* prompt, API_GetArcType* arc) {
    API_GetPointType point{};
    if (askUser(APIIo_GetPoint, prompt, &point) != NoError) return false;

    API_GetLineType line{};
    line.startCoord = point.pos;
    if (askUser(APIIo_GetLine, prompt, &line) != NoError) return false;

    arc->startCoordGiven = 1;
    arc->startCoord = line.startCoord;
    arc->endCoord = line.pos;
    return askUser(APIIo_GetArc, prompt, arc) == NoError;
}

bool GetAnArc(const char* prompt, API_Coord* origo, API_Coord* startPoint, API_Coord* endPoint, bool* negativeArc) {
    API_GetArcType arc{};
    if (!askForArc(prompt, &arc)) return false;
    if (origo != nullptr) *origo = ToCoord(arc.origo);
    if (startPoint != nullptr) *startPoint = ToCoord(arc.startCoord);
    if (endPoint != nullptr) *endPoint = ToCoord(arc.endCoord);
    if (negativeArc != nullptr) *negativeArc = arc.negArc != 0;
    return true;
}

/// Gives a click into empty space the nearest element of the wanted type, where there is one.
static void searchNearest(API_ElemTypeID wantedType, API_GetPointType* point) {
    API_ElemSearchPars search{wantedType, 6, point->pos.x, point->pos.y, 1000000.0};
    API_Elem_Head head{};
    if (ACAPI_Goodies(APIAny_SearchElement, &search, &head, nullptr) != NoError) return;
    head.typeID = wantedType;
    ElemHead_To_Neig(&point->neig, &head);
}

/// A section element counts as the type of the element that was cut.
static bool isSectionOf(API_ElemTypeID wantedType, const API_Guid& guid) {
    API_Element element{};
    element.header.guid = guid;
    return ACAPI_Element_Get(&element, 0) == NoError && element.parentType == wantedType;
}

static bool isAccepted(API_ElemTypeID wantedType, API_ElemTypeID type, const API_Guid& guid) {
    if (type == 0) return false;
    if (wantedType == 0 || wantedType == type) return true;
    return type == SectionElementType && isSectionOf(wantedType, guid);
}

bool ClickAnElem(const char* prompt, API_ElemTypeID wantedType, API_Neig* neig, API_ElemTypeID* typeID, API_Guid* guid,
                 API_Coord3D* c, bool clearPartFlag) {
    API_GetPointType point{};
    const GSErrCode error = askUser(APIIo_GetPoint, prompt, &point);
    if (error != NoError && error != APIERR_CANCEL) WriteReport_Alert("Error in APIIo_GetPointID: %d", error);
    if (error != NoError) return false;

    if (point.neig.neigID == 0) searchNearest(wantedType, &point);
    if (clearPartFlag) point.neig.elemPartId = 0;
    const API_ElemTypeID type = Neig_To_ElemID(point.neig.neigID);

    if (neig != nullptr) *neig = point.neig;
    if (typeID != nullptr) *typeID = type;
    if (guid != nullptr) *guid = point.neig.guid;
    if (c != nullptr) *c = point.pos;
    return isAccepted(wantedType, type, point.neig.guid);
}

/// Grows a handle by one record. Where there is no memory, the handle is freed and becomes null.
static bool appendRecord(GSHandle* handle, int count, const API_Neig& neig) {
    const Int64 size = Int64{count} * Int64{sizeof neig};
    if (BMReallocHandle(*handle, size + Int64{sizeof neig}, ALLOCATE_CLEAR, 0) == nullptr) {
        BMKillHandle(handle);
        return false;
    }
    std::memcpy(**handle + size, &neig, sizeof neig);
    return true;
}

GSHandle ClickElements_Neig(const char* prompt, API_ElemTypeID wantedType, int* count) {
    GSHandle neigs = BMAllocateHandle(0, ALLOCATE_CLEAR, 0);
    int gathered = 0;
    API_Neig neig{};
    while (neigs != nullptr && ClickAnElem(prompt, wantedType, &neig, nullptr, nullptr, nullptr, true) &&
           neig.neigID != 0) {
        if (appendRecord(&neigs, gathered, neig)) ++gathered;
    }
    if (gathered == 0) BMKillHandle(&neigs);
    if (count != nullptr) *count = gathered;
    return neigs;
}

static API_Guid guidOfRecord(GSHandle neigs, int index) {
    API_Neig neig;
    std::memcpy(&neig, *neigs + Int64{index} * Int64{sizeof neig}, sizeof neig);
    return neig.guid;
}

GSHandle ClickElements_ElemHead(const char* prompt, API_ElemTypeID wantedType, int* count) {
    int gathered = 0;
    GSHandle neigs = ClickElements_Neig(prompt, wantedType, &gathered);
    GSHandle heads = nullptr;
    if (neigs != nullptr) {
        heads = BMAllocateHandle(Int64{gathered} * Int64{sizeof(API_Elem_Head)}, ALLOCATE_CLEAR, 0);
        if (BMError() != NoError) gathered = 0;
        for (int i = 0; i < gathered; ++i) {
            const API_Guid guid = guidOfRecord(neigs, i);
            std::memcpy(*heads + Int64{i} * Int64{sizeof(API_Elem_Head)} + offsetof(API_Elem_Head, guid), &guid,
                        sizeof guid);
        }
    }
    BMKillHandle(&neigs);
    if (count != nullptr) *count = gathered;
    return heads;
}

API_ElemTypeID Neig_To_ElemID(API_NeigID neigID) {
    API_ElemTypeID typeID = 0;
    return ACAPI_Goodies(APIAny_NeigToElem, &neigID, &typeID, nullptr) == NoError ? typeID : 0;
}

/// What a click on an element of a type gives; an identifier of 0 is a type that cannot be clicked.
struct NeigOfType {
    API_NeigID neigID;
    Int32 inIndex;
};

/// By element type. The identifiers are the host's: later types got the numbers that were free.
static constexpr NeigOfType NeigTable[] = {
    {0, 0},    // none
    {1, 1},    // Wall
    {5, 0},    // Column
    {6, 1},    // Beam
    {10, 0},   // Window
    {12, 0},   // Door
    {13, 1},   // Object
    {14, 1},   // Lamp
    {15, 1},   // Slab
    {17, 1},   // Roof
    {21, 1},   // Mesh
    {27, 1},   // Dimension
    {28, 1},   // Radial Dimension
    {29, 1},   // Level Dimension
    {31, 1},   // Angle Dimension
    {32, 1},   // Text
    {33, 1},   // Label
    {34, 1},   // Zone
    {38, 1},   // Hatch
    {40, 1},   // Line
    {42, 1},   // Polyline
    {44, 1},   // Arc
    {46, 1},   // Circle
    {48, 1},   // Spline
    {50, 1},   // Hotspot
    {51, 1},   // Cut Plane
    {53, 1},   // Camera
    {0, 0},    // CamSet
    {0, 0},    // Group
    {55, 1},   // Section Element
    {77, 1},   // Drawing
    {57, 1},   // Picture
    {58, 1},   // Detail Drawing
    {88, 1},   // Elevation
    {91, 1},   // InteriorElevation
    {84, 1},   // Worksheet
    {0, 0},    // Hotlink
    {97, 1},   // CurtainWall
    {101, 1},  // CurtainWall Segment
    {105, 1},  // CurtainWall Frame
    {108, 1},  // CurtainWall Panel
    {110, 1},  // CurtainWall Junction
    {112, 1},  // CurtainWall Accessory
    {114, 1},  // Shell
    {117, 0},  // Skylight
    {122, 1},  // Morph
    {124, 1},  // Change Marker
};
static_assert(std::size(NeigTable) == std::size(ElemNames));

/// Fills a header that has only its GUID.
static void completeHeader(API_Elem_Head* head) {
    const API_Guid guid = head->guid;
    *head = API_Elem_Head{};
    head->guid = guid;
    ACAPI_Element_GetHeader(head, 0);
}

bool ElemHead_To_Neig(API_Neig* neig, const API_Elem_Head* elemHead) {
    *neig = API_Neig{};
    neig->guid = elemHead->guid;
    if (elemHead->typeID == 0 && elemHead->guid != APINULLGuid) completeHeader(const_cast<API_Elem_Head*>(elemHead));

    const API_ElemTypeID type = elemHead->typeID;
    if (type < 0 || type >= static_cast<API_ElemTypeID>(std::size(NeigTable)) || NeigTable[type].neigID == 0)
        return false;
    neig->neigID = NeigTable[type].neigID;
    neig->inIndex = NeigTable[type].inIndex;
    return true;
}

// --- The add-on's own menu -----------------------------------------------------------------------------------------

static API_MenuReference menuItem(short menuResID, short itemIndex) {
    API_MenuReference item{};
    item.menuResID = menuResID;
    item.itemIndex = itemIndex;
    return item;
}

/// 0 where the host does not know the item.
static UInt32 getMenuItemFlags(API_MenuReference item) {
    UInt32 flags = 0;
    ACAPI_Interface(APIIo_GetMenuItemFlags, &item, &flags, nullptr);
    return flags;
}

static GSErrCode setMenuItemFlags(API_MenuReference item, UInt32 flags) {
    return ACAPI_Interface(APIIo_SetMenuItemFlags, &item, &flags, nullptr);
}

bool GetMenuItemMark(short menuResID, short itemIndex) {
    return (getMenuItemFlags(menuItem(menuResID, itemIndex)) & API_MenuItemChecked) != 0;
}

bool InvertMenuItemMark(short menuResID, short itemIndex) {
    const API_MenuReference item = menuItem(menuResID, itemIndex);
    const UInt32 flags = getMenuItemFlags(item) ^ API_MenuItemChecked;
    setMenuItemFlags(item, flags);
    return (flags & API_MenuItemChecked) != 0;
}

GSErrCode DisableEnableMenuItem(short menuResID, short itemIndex, bool disable) {
    const API_MenuReference item = menuItem(menuResID, itemIndex);
    const UInt32 others = getMenuItemFlags(item) & ~UInt32{API_MenuItemDisabled};
    return setMenuItemFlags(item, disable ? others | API_MenuItemDisabled : others);
}

// --- Plane geometry ------------------------------------------------------------------------------------------------

static bool isZero(double value) {
    return std::fabs(value) < 1e-5;
}

int FindArc(const API_PolyArc* arcs, int nArcs, int node) {
    if (arcs == nullptr) return -1;
    for (int i = 0; i < nArcs; ++i)
        if (arcs[i].begIndex == node) return i;
    return -1;
}

bool ArcGetOrigo(const API_Coord* startPoint, const API_Coord* endPoint, double angle, API_Coord* origo) {
    if (isZero(angle)) {
        *origo = {0.0, 0.0};
        return false;
    }
    const double sumX = startPoint->x + endPoint->x;
    const double sumY = startPoint->y + endPoint->y;
    if (isZero(std::fabs(angle) - std::numbers::pi)) {
        *origo = {sumX / 2, sumY / 2};
        return true;
    }
    // The sign of the angle picks the side of the chord.
    const double k = 1 / std::tan(angle / 2);
    *origo = {(sumX - k * (endPoint->y - startPoint->y)) / 2, (sumY + k * (endPoint->x - startPoint->x)) / 2};
    return true;
}

double ComputeFiPtr(const API_Coord* c1, const API_Coord* c2, bool allowNegative) {
    const double dx = c2->x - c1->x;
    const double dy = c2->y - c1->y;
    if (isZero(dx) && isZero(dy)) return 0.0;
    const double fi = std::atan2(dy, dx);
    return fi < 0 && !allowNegative ? fi + 2 * std::numbers::pi : fi;
}

double DistCPtr(const API_Coord* c1, const API_Coord* c2) {
    const double dx = c1->x - c2->x;
    const double dy = c1->y - c2->y;
    return std::sqrt(dx * dx + dy * dy);
}
