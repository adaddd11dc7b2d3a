#pragma once
// What the driver add-on hands to a test: addresses of its binding and of its common helpers, and a command to run.

#include "ACAPlib.hpp"
#include "APICommon.hpp"
#include "DllMainImp.hpp"

#include <functional>

// clang-format off
#define HELPERS(X) \
    X(gImpList) X(gImpList_Inited) X(gOwnClientPtr) X(gOwnResModule) X(gOwnLocationData) X(gDllFileName) \
    X(gDllTermHookProc) X(GetBundlePath_bundlePath) X(GetBundlePath_emptyStr) \
    X(GetBundlePath) X(DllMainImp_GetResModuleSpec) X(DllMainImp_GetLocation) X(DllMainImp_OpenResModule) \
    X(DllMainImp_OpenResModuleFromSpec) X(DllMainImp_CloseResModule) \
    X(ACAPI_GetOwnResModule) X(ACAPI_GetOwnLocation) X(ACAPI_SetDllTermHookProc) \
    X(ACAPI_Register_Menu) X(ACAPI_Register_SupportedService) X(ACAPI_Register_RequiredService) \
    X(ACAPI_Register_Subtype) X(ACAPI_Register_SubtypeX) X(ACAPI_Register_FileType) X(ACAPI_Register_ESYM) \
    X(ACAPI_SymbolCode) \
    X(ACAPI_Install_MenuHandler) X(ACAPI_Environment) X(ACAPI_Interface) X(ACAPI_Goodies) X(ACAPI_GetReleaseNumber) \
    X(ACAPI_WriteReport) X(ACAPI_CallUndoableCommand) \
    X(ACAPI_Element_Get) X(ACAPI_Element_GetHeader) \
    X(ACAPI_Element_GetIFCAttributes) X(ACAPI_Element_SetIFCAttribute) \
    X(ACAPI_Element_GetIFCProperties) X(ACAPI_Element_SetIFCProperty) \
    X(ACAPI_Element_GetIFCClassificationReferences) X(ACAPI_Element_SetIFCClassificationReference) \
    X(ACAPI_GetUtilityFunctionSet) X(ACAPI_GetProductRegistry) X(ACAPI_EDB_GetElemRegistry) \
    X(ACAPI_EDB_GetElemDatabase) X(ACAPI_PStatus) \
    X(ACAPI_Resource_GetLocStr) X(ACAPI_Resource_GetLocUStr) X(ACAPI_Resource_GetFixStr) \
    X(ACAPI_FreePtr) X(ACAPI_DisposeHandle) X(ACAPI_FreePtrArray) X(ACAPI_DisposeHandleArray) \
    X(WriteReport) X(WriteReport_Alert) X(WriteReport_Err) X(WriteReport_End) X(ErrorBeep) \
    X(ErrID_To_Name) X(LibID_To_Name) X(AttrID_To_Name) X(ElemID_To_Name) \
    X(ClickAPoint) X(GetAnArc) X(ClickAnElem) X(ClickElements_Neig) X(ClickElements_ElemHead) \
    X(Neig_To_ElemID) X(ElemHead_To_Neig) \
    X(GetMenuItemMark) X(InvertMenuItemMark) X(DisableEnableMenuItem) \
    X(FindArc) X(ArcGetOrigo) X(ComputeFiPtr) X(DistCPtr)
// clang-format on

struct Helpers {
    /// Run by the add-on when an item of its menu is picked, and in its FreeData.
    std::function<void()>* command;
    std::function<void()>* atEnd;

#define HELPER(name) decltype(&::name) name;
    HELPERS(HELPER)
#undef HELPER

    static constexpr Int16 MenuResID = 400;
    static constexpr Int16 PromptResID = 410;
};

using GetHelpersProc = const Helpers*();
