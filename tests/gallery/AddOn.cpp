#include "AddOn.hpp"

#include <algorithm>
#include <cstdio>

namespace gallery {

HostFunction table[HostTableSize];
void* client = nullptr;

API_AddonType introduceItself(API_EnvirParams* envir) {
    CHTruncate("Gallery", envir->addOnInfo.name, sizeof envir->addOnInfo.name);
    CHTruncate("Shows how a host bears a fault", envir->addOnInfo.description, sizeof envir->addOnInfo.description);
    return APIAddon_Normal;
}

GSErrCode registerMenu() {
    API_MenuRegistration record{};
    record.menuStrResID = MenuId;
    record.promptStrResID = PromptsId;
    record.position = 1;
    return callHost<HostSlot::Register_Menu>(&record);
}

GSErrCode installHandler() {
    return callHost<HostSlot::Install_MenuHandler>(client, Int32{MenuId}, behaviour.command);
}

GSErrCode succeed() {
    return NoError;
}

GSErrCode acceptTable() {
    return NoError;
}

GSErrCode doNothing(const API_MenuParams*) {
    return NoError;
}

void tell(const std::string& label, GSErrCode result) {
    const std::string text = label + ": " + std::to_string(result);
    callHost<HostSlot::WriteReport>(client, text.c_str(), static_cast<unsigned char>(0));
}

API_Guid testElement() {
    GS::Guid guid;
    guid.ConvertFromString("C0FFEE00-1234-4ABC-8DEF-000000000001");
    return GSGuid2APIGuid(guid);
}

GSErrCode renameElement(const char* name) {
    return callHost<HostSlot::Element_SetIFCAttribute>(client, testElement(), API_IFCAttribute{"Name", name});
}

GSErrCode runCommand(GSErrCode (*command)()) {
    return callHost<HostSlot::CallUndoableCommand>(client, GS::UniString("Gallery command"),
                                                   std::function<GSErrCode()>(command));
}

// Without the sanitizers' own checks, which would stop the program before the processor notices anything.
__attribute__((no_sanitize("address", "undefined"))) void writeToNowhere() {
    volatile int* volatile nowhere = nullptr;
    *nowhere = 1;
}

namespace {

GSErrCode keepClientAndInitialize(void* given) {
    client = given;
    return behaviour.initialize();
}

}  // namespace

}  // namespace gallery

extern "C" HOST_API void GetExportedFuncAddrs(ExportedFunctions* record) {
    using gallery::behaviour;
    *record = {};
    record->interfaceVersion = behaviour.interfaceVersion;
    record->apiVersion = behaviour.apiVersion;
    record->checkEnvironment = behaviour.checkEnvironment;
    record->registerInterface = behaviour.registerInterface;
    record->initialize = &gallery::keepClientAndInitialize;
    record->freeData = behaviour.leaveOutFreeData ? nullptr : behaviour.freeData;
}

extern "C" HOST_API GSErrCode SetImportedFuncAddrs(const HostFunction* given) {
    std::copy_n(given, HostTableSize, gallery::table);
    return gallery::behaviour.afterTable();
}
