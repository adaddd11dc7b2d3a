#include "ACAPlib.hpp"

#include "DllMainImp.hpp"

#include <cstring>

HostFunction gImpList[HostTableSize] = {};
unsigned char gImpList_Inited = 0;
void* gOwnClientPtr = nullptr;

static_assert(sizeof gImpList == 4016, "the host copies out a table of this size");

// --- Wrappers: refuse the host's call until its function table is there --------------------------------------------

static bool hostIsBound() {
    return gImpList_Inited == 1;
}

static API_AddonType My_CheckEnvironment(API_EnvirParams* envir) {
    return hostIsBound() ? CheckEnvironment(envir) : APIAddon_DontRegister;
}

static GSErrCode My_RegisterInterface() {
    return hostIsBound() ? RegisterInterface() : APIERR_GENERAL;
}

static GSErrCode My_Initialize(void* clientPtr) {
    if (!hostIsBound()) return APIERR_GENERAL;
    gOwnClientPtr = clientPtr;
    return Initialize();
}

static GSErrCode My_FreeData() {
    if (!hostIsBound()) return APIERR_GENERAL;
    const GSErrCode result = FreeData();
    gOwnClientPtr = nullptr;
    return result;
}

// --- Entry points: found by name -----------------------------------------------------------------------------------

extern "C" {
IMAGE_EXPORT GetExportedFuncAddrsProc GetExportedFuncAddrs;
IMAGE_EXPORT SetImportedFuncAddrsProc SetImportedFuncAddrs;
}

void GetExportedFuncAddrs(ExportedFunctions* record) {
    BNFillMemory(record, sizeof *record, 0);
    record->interfaceVersion = APIInterfaceVersion;
    record->checkEnvironment = &My_CheckEnvironment;
    record->registerInterface = &My_RegisterInterface;
    record->initialize = &My_Initialize;
    record->freeData = &My_FreeData;
    record->apiVersion = APIVersion;
}

GSErrCode SetImportedFuncAddrs(const HostFunction* table) {
    std::memcpy(gImpList, table, sizeof gImpList);
    gImpList_Inited = 1;
    return NoError;
}

// --- The own module ------------------------------------------------------------------------------------------------

GSResModule ACAPI_GetOwnResModule() {
    return gOwnResModule;
}

GSErrCode ACAPI_GetOwnLocation(IO::Location& location) {
    static const IO::Location ownLocation(gOwnLocationData);
    if (ownLocation.GetStatus() != IO::Location::StatusOK) {
        location.Clear();
        return APIERR_NOTINIT;
    }
    location = ownLocation;
    return NoError;
}

void ACAPI_SetDllTermHookProc(void (*hook)()) {
    gDllTermHookProc = hook;
}

// --- Registrations -------------------------------------------------------------------------------------------------
// Each packs its arguments, in their order, into a zeroed record of 32 bytes. The host reads it during the call.

struct ServiceRegistration {
    UInt32 commandId;
    Int32 commandVersion;
    unsigned char reserved[24];
};
static_assert(sizeof(ServiceRegistration) == 32);

struct RequiredServiceRegistration {
    UInt32 developerId;
    Int32 localId;
    UInt32 commandId;
    Int32 commandVersion;
    unsigned char reserved[16];
};
static_assert(sizeof(RequiredServiceRegistration) == 32);

struct SubtypeRegistration {
    UInt32 subtypeId;
    UInt32 parentId;
    UInt32 flags;
    unsigned char reserved[20];
};
static_assert(sizeof(SubtypeRegistration) == 32);

GSErrCode ACAPI_Register_Menu(Int16 menuStrResID, Int16 promptStrResID, Int32 position, UInt32 flags) {
    const API_MenuRegistration record{menuStrResID, promptStrResID, position, flags, {}};
    return callHostWithoutClient<HostSlot::Register_Menu>(&record);
}

GSErrCode ACAPI_Register_SupportedService(UInt32 commandId, Int32 commandVersion) {
    const ServiceRegistration record{commandId, commandVersion, {}};
    return callHostWithoutClient<HostSlot::Register_SupportedService>(&record);
}

GSErrCode ACAPI_Register_RequiredService(UInt32 developerId, Int32 localId, UInt32 commandId, Int32 commandVersion) {
    const RequiredServiceRegistration record{developerId, localId, commandId, commandVersion, {}};
    return callHostWithoutClient<HostSlot::Register_RequiredService>(&record);
}

GSErrCode ACAPI_Register_Subtype(UInt32 subtypeId, UInt32 parentId) {
    return ACAPI_Register_SubtypeX(subtypeId, parentId, 0);
}

GSErrCode ACAPI_Register_SubtypeX(UInt32 subtypeId, UInt32 parentId, UInt32 flags) {
    const SubtypeRegistration record{subtypeId, parentId, flags, {}};
    return callHostWithoutClient<HostSlot::Register_Subtype>(&record);
}

/// File types and library symbols: the host does not publish their slots, so there is no function to hand a record to.
/// Their members make every check of their own and then answer as an empty slot does. Once the slots are known, they
/// get their lines in the host's list, and calls like the ones above take this function's place.
static GSErrCode answerOfUnpublishedSlot() {
    return answerOfEmptySlot<GSErrCode>();
}

GSErrCode ACAPI_Register_FileType(Int32 /*reference*/, UInt32 /*macType*/, UInt32 /*macCreator*/,
                                  const char* extension) {
    return extension == nullptr ? APIERR_BADPARS : answerOfUnpublishedSlot();
}

bool ACAPI_SymbolCode(API_LibTypeID type, UInt32* code) {
    switch (type) {
        case 2:
            *code = GSFourCharCode("WSYM");
            return true;
        case 3:
            *code = GSFourCharCode("DSYM");
            return true;
        case 4:
            *code = GSFourCharCode("GSYM");
            return true;
        case 5:
            *code = GSFourCharCode("LSYM");
            return true;
        case 13:
            *code = GSFourCharCode("SSYM");
            return true;
        default:
            return false;
    }
}

GSErrCode ACAPI_Register_ESYM(API_LibTypeID type) {
    UInt32 code = 0;
    return ACAPI_SymbolCode(type, &code) ? answerOfUnpublishedSlot() : APIERR_BADID;
}

// --- Environment, user, report -------------------------------------------------------------------------------------

GSErrCode ACAPI_Install_MenuHandler(Int16 menuStrResID, APIMenuCommandProc* handler) {
    return callHost<HostSlot::Install_MenuHandler>(menuStrResID, handler);
}

GSErrCode ACAPI_Environment(UInt32 code, void* par1, void* par2, void* par3) {
    return callHost<HostSlot::Environment>(code, par1, par2, par3);
}

GSErrCode ACAPI_Interface(UInt32 code, void* par1, void* par2, void* par3) {
    return callHost<HostSlot::Interface>(code, par1, par2, par3);
}

GSErrCode ACAPI_Goodies(UInt32 code, void* par1, void* par2, void* par3) {
    return callHost<HostSlot::Goodies>(code, par1, par2, par3);
}

void ACAPI_GetReleaseNumber(API_ReleaseNumber* info) {
    if (info != nullptr) ACAPI_Environment(APIEnv_Application, info);
}

void ACAPI_WriteReport(const char* text, bool alert) {
    callHost<HostSlot::WriteReport>(text, alert);
}

GSErrCode ACAPI_CallUndoableCommand(const GS::UniString& name, const std::function<GSErrCode()>& command) {
    return callHost<HostSlot::CallUndoableCommand>(name, command);
}

// --- Elements ------------------------------------------------------------------------------------------------------

GSErrCode ACAPI_Element_Get(API_Element* element, UInt32 mask) {
    return callHost<HostSlot::Element_Get>(element, mask);
}

GSErrCode ACAPI_Element_GetHeader(API_Elem_Head* header, UInt32 mask) {
    return callHost<HostSlot::Element_GetHeader>(header, mask);
}

GSErrCode ACAPI_Element_GetIFCAttributes(const API_Guid& guid, bool storedOnly,
                                         GS::Array<API_IFCAttribute>* attributes) {
    return callHost<HostSlot::Element_GetIFCAttributes>(guid, storedOnly, attributes);
}

GSErrCode ACAPI_Element_SetIFCAttribute(const API_Guid& guid, const API_IFCAttribute& attribute) {
    return callHost<HostSlot::Element_SetIFCAttribute>(guid, attribute);
}

GSErrCode ACAPI_Element_GetIFCProperties(const API_Guid& guid, bool storedOnly,
                                         GS::Array<API_IFCProperty>* properties) {
    return callHost<HostSlot::Element_GetIFCProperties>(guid, storedOnly, properties);
}

GSErrCode ACAPI_Element_SetIFCProperty(const API_Guid& guid, const API_IFCProperty& property) {
    return callHost<HostSlot::Element_SetIFCProperty>(guid, property);
}

GSErrCode ACAPI_Element_GetIFCClassificationReferences(const API_Guid& guid, bool storedOnly,
                                                       GS::Array<API_IFCClassificationReference>* references) {
    return callHost<HostSlot::Element_GetIFCClassificationReferences>(guid, storedOnly, references);
}

GSErrCode ACAPI_Element_SetIFCClassificationReference(const API_Guid& guid,
                                                      const API_IFCClassificationReference& reference) {
    return callHost<HostSlot::Element_SetIFCClassificationReference>(guid, reference);
}

// --- Objects of the host -------------------------------------------------------------------------------------------

void* ACAPI_GetUtilityFunctionSet() {
    return callHost<HostSlot::GetUtilityFunctionSet>();
}

void* ACAPI_GetProductRegistry() {
    return callHost<HostSlot::GetProductRegistry>();
}

void* ACAPI_EDB_GetElemRegistry() {
    return callHost<HostSlot::EDB_GetElemRegistry>();
}

void* ACAPI_EDB_GetElemDatabase() {
    return callHost<HostSlot::EDB_GetElemDatabase>();
}

void* ACAPI_PStatus() {
    return callHost<HostSlot::PStatus>();
}

// --- Without a slot ------------------------------------------------------------------------------------------------

bool ACAPI_Resource_GetLocStr(char* destination, Int16 resID, Int32 index, GSResModule module) {
    GS::UniString text;
    const bool found = RSGetIndString(&text, resID, index, module);
    CHTruncate(text.ToCStr(), destination, ACAPI_ResourceTextSize);
    return found;
}

bool ACAPI_Resource_GetLocUStr(GS::UniString* destination, Int16 resID, Int32 index, GSResModule module) {
    return RSGetIndString(destination, resID, index, module);
}

bool ACAPI_Resource_GetFixStr(char* destination, Int16 resID, Int32 index, GSResModule module) {
    GS::UniString text;
    const bool found = RSGetIndFixString(&text, resID, index, module);
    CHTruncate(text.ToCStr(), destination, ACAPI_ResourceTextSize);
    return found;
}

void ACAPI_FreePtr(GSPtr* ptr) {
    BMKillPtr(ptr);
}

void ACAPI_DisposeHandle(GSHandle* handle) {
    BMKillHandle(handle);
}

void ACAPI_FreePtrArray(GSPtr* array) {
    if (array == nullptr || *array == nullptr) return;
    const auto count = static_cast<std::size_t>(BMGetPtrSize(*array)) / sizeof(GSPtr);
    for (std::size_t i = 0; i < count; ++i) {
        GSPtr member = nullptr;
        std::memcpy(&member, *array + i * sizeof member, sizeof member);
        BMKillPtr(&member);
    }
    BMKillPtr(array);
}

void ACAPI_DisposeHandleArray(GSHandle* array) {
    if (array == nullptr || *array == nullptr) return;
    const auto count = static_cast<std::size_t>(BMGetHandleSize(*array)) / sizeof(GSHandle);
    for (std::size_t i = 0; i < count; ++i) {
        GSHandle member = nullptr;
        std::memcpy(&member, **array + i * sizeof member, sizeof member);
        BMKillHandle(&member);
    }
    BMKillHandle(array);
}
