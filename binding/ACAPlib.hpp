#pragma once
// The add-on's side of the load-time binding: the functions that the host calls, and the ACAPI_ family, through which
// the add-on calls the host.
//
// A member of the family whose slot the host left empty answers APIERR_NOTSUPPORTED, null, or returns at once,
// whichever its result allows. Before My_Initialize there is no client handle, and only the registrations, the resource
// texts and the own location may be used.

#include "HostCall.hpp"
#include "Memory.hpp"
#include "ResourceManager.hpp"

/// 1 once SetImportedFuncAddrs has filled gImpList; the wrappers test for exactly 1.
extern unsigned char gImpList_Inited;

// --- Provided by the add-on's own source ---------------------------------------------------------------------------

/// The four that the wrappers pass the host's calls on to; see ExportedFunctions.
API_AddonType CheckEnvironment(API_EnvirParams* envir);
GSErrCode RegisterInterface();
GSErrCode Initialize();
GSErrCode FreeData();

// --- The own module ------------------------------------------------------------------------------------------------

/// The add-on's own resource file, which the image start has opened; InvalidResModule where there is none. Not to be
/// closed by the caller.
GSResModule ACAPI_GetOwnResModule();

/// The bundle's folder. @return 0; or APIERR_NOTINIT, and `location` is cleared, where it is not known.
GSErrCode ACAPI_GetOwnLocation(IO::Location& location);

/// @param hook  called when the image ends although the host never called My_FreeData; null for none.
void ACAPI_SetDllTermHookProc(void (*hook)());

// --- Registrations: called from RegisterInterface ------------------------------------------------------------------

/// A menu with the texts of string list `menuStrResID` and the prompts of `promptStrResID`. @param position  a code of
/// the host's for the place, 1 = where add-ons' menus go. @param flags  0.
GSErrCode ACAPI_Register_Menu(Int16 menuStrResID, Int16 promptStrResID, Int32 position, UInt32 flags);
/// A service that this add-on offers to others, and one that it needs of another one.
GSErrCode ACAPI_Register_SupportedService(UInt32 commandId, Int32 commandVersion);
GSErrCode ACAPI_Register_RequiredService(UInt32 developerId, Int32 localId, UInt32 commandId, Int32 commandVersion);
/// A subtype of library parts below another one; the second form with flags, which are 0 in the first.
GSErrCode ACAPI_Register_Subtype(UInt32 subtypeId, UInt32 parentId);
GSErrCode ACAPI_Register_SubtypeX(UInt32 subtypeId, UInt32 parentId, UInt32 flags);

/// A file type that the add-on reads. @return APIERR_BADPARS for a null extension.
GSErrCode ACAPI_Register_FileType(Int32 reference, UInt32 macType, UInt32 macCreator, const char* extension);
/// Offers symbols for library parts of a type. @return APIERR_BADID for one that has none: only windows (2), doors (3),
/// objects (4), lamps (5) and skylights (13) have one.
GSErrCode ACAPI_Register_ESYM(API_LibTypeID type);
/// The four-character code of a library-part type's symbol, "WSYM" for a window. @return false for a type without one.
bool ACAPI_SymbolCode(API_LibTypeID type, UInt32* code);

// --- Environment, user, report -------------------------------------------------------------------------------------

/// @param handler  called for every item of the menu, until the add-on's end.
/// @return APIERR_BADID for a menu that is not registered.
GSErrCode ACAPI_Install_MenuHandler(Int16 menuStrResID, APIMenuCommandProc* handler);
/// Requests by a four-character code; which parameters it reads and writes stands beside the code in APITypes.hpp.
GSErrCode ACAPI_Environment(UInt32 code, void* par1 = nullptr, void* par2 = nullptr, void* par3 = nullptr);
GSErrCode ACAPI_Interface(UInt32 code, void* par1 = nullptr, void* par2 = nullptr, void* par3 = nullptr);
GSErrCode ACAPI_Goodies(UInt32 code, void* par1 = nullptr, void* par2 = nullptr, void* par3 = nullptr);
/// Leaves `info` as it is where the host cannot tell.
void ACAPI_GetReleaseNumber(API_ReleaseNumber* info);
/// A line of the host's report, copied. @param alert  shows the text to the user at once.
void ACAPI_WriteReport(const char* text, bool alert);
/// Runs `command` at once, as one step of the host's undo queue. @return command's result, or why it was not run.
GSErrCode ACAPI_CallUndoableCommand(const GS::UniString& name, const std::function<GSErrCode()>& command);

// --- Elements ------------------------------------------------------------------------------------------------------

/// Fill the record, or the header alone, of the element whose GUID stands in it. @param mask  0.
/// @return APIERR_BADPARS for the null GUID, APIERR_BADID where the model has no such element.
GSErrCode ACAPI_Element_Get(API_Element* element, UInt32 mask = 0);
GSErrCode ACAPI_Element_GetHeader(API_Elem_Head* header, UInt32 mask = 0);

/// An element's IFC data. Each Get fills the caller's array with copies and leaves it as it is where it fails;
/// `storedOnly` leaves out what comes from the element's type. Each Set writes one record, inside an undoable command
/// only (APIERR_REFUSEDCMD); a refusal is APIERR_BADNAME, APIERR_BADVALUE or APIERR_READONLY, with the reason in the
/// report.
GSErrCode ACAPI_Element_GetIFCAttributes(const API_Guid& guid, bool storedOnly,
                                         GS::Array<API_IFCAttribute>* attributes);
GSErrCode ACAPI_Element_SetIFCAttribute(const API_Guid& guid, const API_IFCAttribute& attribute);
GSErrCode ACAPI_Element_GetIFCProperties(const API_Guid& guid, bool storedOnly, GS::Array<API_IFCProperty>* properties);
GSErrCode ACAPI_Element_SetIFCProperty(const API_Guid& guid, const API_IFCProperty& property);
GSErrCode ACAPI_Element_GetIFCClassificationReferences(const API_Guid& guid, bool storedOnly,
                                                       GS::Array<API_IFCClassificationReference>* references);
GSErrCode ACAPI_Element_SetIFCClassificationReference(const API_Guid& guid,
                                                      const API_IFCClassificationReference& reference);

// --- Objects of the host: owned by it, null where it has none ------------------------------------------------------

void* ACAPI_GetUtilityFunctionSet();
void* ACAPI_GetProductRegistry();
void* ACAPI_EDB_GetElemRegistry();
void* ACAPI_EDB_GetElemDatabase();
void* ACAPI_PStatus();

// --- Without a slot: the host's frameworks do the work -------------------------------------------------------------

/// Size of the buffer that the resource texts are read into.
inline constexpr USize ACAPI_ResourceTextSize = 256;

/// Reads text `index` of string list `resID` into a buffer of ACAPI_ResourceTextSize bytes, as UTF-8; a longer text is
/// cut between two characters. In the user's language where the module has it.
/// @return false, and an empty text, where there is no such text.
bool ACAPI_Resource_GetLocStr(char* destination, Int16 resID, Int32 index, GSResModule module);
/// The same, whole.
bool ACAPI_Resource_GetLocUStr(GS::UniString* destination, Int16 resID, Int32 index, GSResModule module);
/// The same from a list that is never translated.
bool ACAPI_Resource_GetFixStr(char* destination, Int16 resID, Int32 index, GSResModule module);

/// Free a block of the host's memory manager and set the caller's variable to null. Null does nothing.
void ACAPI_FreePtr(GSPtr* ptr);
void ACAPI_DisposeHandle(GSHandle* handle);
/// The same for a block that holds nothing but blocks: they are freed first.
void ACAPI_FreePtrArray(GSPtr* array);
void ACAPI_DisposeHandleArray(GSHandle* array);
