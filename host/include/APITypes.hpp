#pragma once
// Records, constants and error codes of the add-on interface, version 19000. Plain data, shared by both sides of the
// function table; where a size is part of the contract it is asserted beside the record.

#include "Array.hpp"
#include "GSException.hpp"
#include "Guid.hpp"
#include "Location.hpp"
#include "UniString.hpp"

#include <functional>
#include <type_traits>

// --- Error codes: 0x81060000 + n -----------------------------------------------------------------------------------

enum APIErrCodes : GSErrCode {
#define APIERR(name, number) name = static_cast<GSErrCode>(0x81060000U + (number)),
#include "APIErrors.def"
#undef APIERR
};

// --- Identifiers ---------------------------------------------------------------------------------------------------

/// An element's identifier: the 16 bytes of GS::Guid.
struct alignas(8) API_Guid {
    unsigned char bytes[16];
};
static_assert(sizeof(API_Guid) == 16);

inline constexpr API_Guid APINULLGuid{};

inline bool operator==(const API_Guid& a, const API_Guid& b) {
    return std::memcmp(a.bytes, b.bytes, sizeof a.bytes) == 0;
}
inline bool operator!=(const API_Guid& a, const API_Guid& b) {
    return !(a == b);
}
inline API_Guid GSGuid2APIGuid(const GS::Guid& guid) {
    API_Guid result;
    std::memcpy(result.bytes, guid.bytes, sizeof result.bytes);
    return result;
}
inline GS::Guid APIGuid2GSGuid(const API_Guid& guid) {
    GS::Guid result;
    std::memcpy(result.bytes, guid.bytes, sizeof guid.bytes);
    return result;
}

using API_ElemTypeID = Int32;  ///< 0 = none; see docs/ifc.md for the types that come from an IFC file.
using API_NeigID = Int32;      ///< A kind of clickable element part; 0 = nothing hit.
using API_LibTypeID = Int32;   ///< A kind of library part; 0 = none.
using API_AttrTypeID = Int32;  ///< A kind of the model's attributes (layers, pens and their like); 0 = none.

// --- Start-up ------------------------------------------------------------------------------------------------------

/// The add-on's answer to the environment check: what it is and what it does, zero-terminated UTF-8.
struct API_AddonInfo {
    char name[256];
    char description[256];
};

/// Given to CheckEnvironment.
struct API_EnvirParams {
    Int32 applicationId;  ///< The host application that loads the add-on; 0 is the one this interface belongs to.
    API_AddonInfo addOnInfo;
};

/// What CheckEnvironment answers.
using API_AddonType = Int32;
inline constexpr API_AddonType APIAddon_DontRegister = 0;
inline constexpr API_AddonType APIAddon_Normal = 1;

/// A menu item: the number of the menu's string list, and the item's index from 1. Every other byte is zero.
struct API_MenuReference {
    Int16 menuResID = 0;
    Int16 reserved = 0;
    Int32 itemIndex = 0;
    Int64 reserved2 = 0;
};
static_assert(sizeof(API_MenuReference) == 16 && std::has_unique_object_representations_v<API_MenuReference>);

/// Given to a menu handler.
struct API_MenuParams {
    API_MenuReference menuItemRef;
};

/// Called for the item that the user picked. Its result is the command's answer to who picked it.
using APIMenuCommandProc = GSErrCode(const API_MenuParams* params);

/// Menu-item flags of the requests 'GMIF' and 'SMIF'.
enum API_MenuItemFlags : UInt32 { API_MenuItemDisabled = 0x1, API_MenuItemChecked = 0x2 };

/// What ACAPI_Register_Menu hands over. Zeroed by the binding before it is filled.
struct API_MenuRegistration {
    Int16 menuStrResID;
    Int16 promptStrResID;
    Int32 position;
    UInt32 flags;
    unsigned char reserved[20];
};
static_assert(sizeof(API_MenuRegistration) == 32);

// The host's environment requests. Any other code: APIERR_NOTSUPPORTED; a parameter missing: APIERR_BADPARS.
/// Where a special folder is. par1: const Int32*, the folder; par2: IO::Location*, set. APIERR_BADPARS for any folder
/// but API_HelpFolder.
inline constexpr UInt32 APIEnv_GetSpecFolder = GSFourCharCode("GSPF");
/// Which host this is. par1: API_ReleaseNumber*, filled.
inline constexpr UInt32 APIEnv_Application = GSFourCharCode("APPL");

/// A special folder of 'GSPF': the folder that holds the help of add-ons.
inline constexpr Int32 API_HelpFolder = 12;

/// Answer of 'APPL'.
struct API_ReleaseNumber {
    Int32 version;      ///< APIVersion.
    Int32 buildNumber;  ///< Of the host's release; this host's is 1.
    unsigned char reserved[56];
};

// --- Elements ------------------------------------------------------------------------------------------------------

/// What every element has.
struct API_Elem_Head {
    API_ElemTypeID typeID;
    UInt32 reserved;
    API_Guid guid;
    unsigned char reserved2[88];
};
static_assert(sizeof(API_Elem_Head) == 112);

/// An element as ACAPI_Element_Get fills it. Before the call it is zeroed and its header's GUID set.
struct API_Element {
    API_Elem_Head header;
    API_ElemTypeID parentType;  ///< For a section element: the type of the element that was cut.
    unsigned char data[2956];
};
static_assert(sizeof(API_Element) == 3072);

/// A place in the model. All coordinates and distances of this interface are in the length unit of the open model's
/// file (its IfcUnitAssignment: metres, millimetres, feet), in the axes of its world: z upwards.
struct API_Coord3D {
    double x, y, z;
};
/// A place in plan, in the same unit and axes.
struct API_Coord {
    double x, y;
};

/// The handle of a clicked element part.
struct API_Neig {
    API_NeigID neigID;
    UInt32 reserved;
    API_Guid guid;
    Int32 inIndex;  ///< Which of the element's parts of that kind.
    UInt32 reserved2;
    Int64 elemPartId;  ///< 0 = the element as a whole.
};
static_assert(sizeof(API_Neig) == 40 && std::has_unique_object_representations_v<API_Neig>);

/// One arc of a polygon outline.
struct API_PolyArc {
    Int32 begIndex;  ///< The arc's first vertex.
    Int32 endIndex;
    double arcAngle;  ///< In radians, counter-clockwise where positive.
};
static_assert(sizeof(API_PolyArc) == 16);

// --- Requests to the user ------------------------------------------------------------------------------------------

// Codes of ACAPI_Interface. Any other: APIERR_NOTSUPPORTED; a parameter missing: APIERR_BADPARS.
/// A point. par1: API_GetPointType*. APIERR_CANCEL where the user cancels, or where no model window is open.
inline constexpr UInt32 APIIo_GetPoint = GSFourCharCode("IPOI");
/// A line. par1: API_GetLineType*. Cancelled like a point.
inline constexpr UInt32 APIIo_GetLine = GSFourCharCode("ILIN");
/// An arc. par1: API_GetArcType*. Cancelled like a point; APIERR_REFUSEDPAR where the clicks lie on one line.
inline constexpr UInt32 APIIo_GetArc = GSFourCharCode("IARC");
/// The states of a menu item of the add-on's own. par1: const API_MenuReference*; par2: UInt32*, the
/// API_MenuItemFlags, written. APIERR_BADID for a menu it has not registered, APIERR_BADINDEX for an unknown item.
inline constexpr UInt32 APIIo_GetMenuItemFlags = GSFourCharCode("GMIF");
/// The same parameters; the flags are read.
inline constexpr UInt32 APIIo_SetMenuItemFlags = GSFourCharCode("SMIF");

// Codes of ACAPI_Goodies. Any other: APIERR_NOTSUPPORTED; a parameter missing: APIERR_BADPARS.
/// The display name of an element type. par1: the API_ElemTypeID itself, widened to a pointer; par2: GS::UniString*.
/// An unknown type: APIERR_BADPARS, the text stays.
inline constexpr UInt32 APIAny_GetElemTypeName = GSFourCharCode("GETN");
/// The element nearest to a point, by the origin of its placement in plan. par1: const API_ElemSearchPars*; par2:
/// API_Elem_Head*, filled. APIERR_NOMORE where there is none within the distance.
inline constexpr UInt32 APIAny_SearchElement = GSFourCharCode("SELM");
/// The element type that a neig identifier belongs to. par1: const API_NeigID*; par2: API_ElemTypeID*. APIERR_BADPARS
/// for an unknown one.
inline constexpr UInt32 APIAny_NeigToElem = GSFourCharCode("NTOE");

/// 'IPOI': a clicked point. Zeroed by the caller, who sets the prompt.
struct API_GetPointType {
    char prompt[256];
    Int16 changeFilter;  ///< Left at 0.
    Int16 changePlane;   ///< Left at 0.
    Int32 reserved;
    API_Neig neig;    ///< Answer: what was hit; its identifier is 0 for empty space.
    API_Coord3D pos;  ///< Answer: where.
    unsigned char reserved2[152];
};
static_assert(sizeof(API_GetPointType) == 480);

/// 'ILIN': a line, from `startCoord` to where the user clicks.
struct API_GetLineType {
    char prompt[256];
    API_Coord3D startCoord;
    API_Coord3D pos;  ///< The clicked end.
    unsigned char reserved[144];
};
static_assert(sizeof(API_GetLineType) == 448);

/// 'IARC': an arc. The user's click gives its bulge: the arc runs from start to end through the clicked point. Without
/// `startCoordGiven` the user is asked for the start and the end first.
struct API_GetArcType {
    char prompt[256];
    unsigned char startCoordGiven;  ///< 1: `startCoord` and `endCoord` hold the line that opens the arc.
    unsigned char reserved;
    unsigned char negArc;  ///< Answer: the arc runs clockwise.
    unsigned char reserved2[5];
    API_Coord3D origo;  ///< Answer: the centre.
    API_Coord3D startCoord;
    API_Coord3D endCoord;
    unsigned char reserved3[96];
};
static_assert(sizeof(API_GetArcType) == 432);

/// 'SELM': the nearest element.
struct API_ElemSearchPars {
    API_ElemTypeID typeID;  ///< 0 = any.
    Int32 filterBits;       ///< 6: what is visible and on the current storey. The stand-in host has no such states.
    double x, y;            ///< Where to search from, in plan.
    double maxDistance;     ///< An element as far as that is still near enough.
};
static_assert(sizeof(API_ElemSearchPars) == 32);

// --- IFC data ------------------------------------------------------------------------------------------------------

/// An attribute of an element: an explicit one of its class, whose value can be said as a text.
struct API_IFCAttribute {
    GS::UniString attributeName;   ///< In the schema's spelling.
    GS::UniString attributeValue;  ///< Empty where unset.
};

enum API_IFCPropertyKind : Int32 {
    API_IFCPropertySingleValueType = 0,
    API_IFCPropertyListValueType = 1,
    API_IFCPropertyBoundedValueType = 2,
    API_IFCPropertyEnumeratedValueType = 3,
    API_IFCPropertyTableValueType = 4,
    API_IFCPropertyReferenceValueType = 5
};

enum API_IFCPrimitiveType : Int32 {
    API_IFCIntegerType = 0,
    API_IFCRealType = 1,
    API_IFCBooleanType = 2,
    API_IFCLogicalType = 3,
    API_IFCStringType = 4,
    API_IFCOtherType = 5
};

/// Codes of a logical, held in API_IFCPropertyValue::integerValue.
enum API_IFCLogical : Int64 { API_IFCFalse = 0, API_IFCUnknown = 1, API_IFCTrue = 2 };

struct API_IFCPropertyValue {
    GS::UniString valueType;                  ///< In the schema's spelling, "IfcLabel"; empty where there is no value.
    Int32 primitiveType = API_IFCStringType;  ///< Says which of the fields below counts.
    Int64 integerValue = 0;                   ///< Also the logical's code.
    double realValue = 0.0;                   ///< In the unit that the model's file has it in.
    unsigned char booleanValue = 0;           ///< The lowest bit counts.
    GS::UniString stringValue;
};

struct API_IFCPropertyHead {
    GS::UniString propertySetName;
    GS::UniString propertyName;
    Int32 kind = API_IFCPropertySingleValueType;
    bool inherited = false;  ///< The element has it from its type object.
};

struct API_IFCPropertySingleValue {
    API_IFCPropertyValue nominalValue;
};

/// A property of an element. Of the kinds other than single value only the head comes from the host.
struct API_IFCProperty {
    API_IFCPropertyHead head;
    API_IFCPropertySingleValue singleValue;
};

/// A text that may be absent.
struct API_IFCOptionalText {
    GS::UniString text;
    bool present = false;
};

/// What a reference leads to: the classification system itself.
struct API_IFCReferencedSource {
    GS::UniString source;
    GS::UniString edition;
    GS::UniString classificationName;
};

/// A place in a classification system that an element is assigned to.
struct API_IFCClassificationReference {
    GS::UniString systemLabel;  ///< By this the references of an element are told apart.
    API_IFCOptionalText location;
    API_IFCOptionalText name;
    API_IFCOptionalText itemReference;
    API_IFCReferencedSource referencedSource;
};
