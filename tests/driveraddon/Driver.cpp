#include "Helpers.hpp"

static std::function<void()> command;
static std::function<void()> atEnd;

extern "C" {
IMAGE_EXPORT GetHelpersProc GetHelpers;
}

const Helpers* GetHelpers() {
#define HELPER(name) &::name,
    static const Helpers helpers{&command, &atEnd, HELPERS(HELPER)};
#undef HELPER
    return &helpers;
}

static GSErrCode runCommand(const API_MenuParams*) {
    if (command) command();
    return NoError;
}

API_AddonType CheckEnvironment(API_EnvirParams* envir) {
    ACAPI_Resource_GetLocStr(envir->addOnInfo.name, 32000, 1, ACAPI_GetOwnResModule());
    ACAPI_Resource_GetLocStr(envir->addOnInfo.description, 32000, 2, ACAPI_GetOwnResModule());
    return APIAddon_Normal;
}

GSErrCode RegisterInterface() {
    return ACAPI_Register_Menu(Helpers::MenuResID, Helpers::PromptResID, 1, 0);
}

GSErrCode Initialize() {
    return ACAPI_Install_MenuHandler(Helpers::MenuResID, &runCommand);
}

GSErrCode FreeData() {
    if (atEnd) atEnd();
    command = nullptr;
    atEnd = nullptr;
    return NoError;
}
