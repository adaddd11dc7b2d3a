// Slot 76: what the host is and where things are.

#include "services/ProgramFolder.hpp"
#include "services/Services.hpp"

namespace host::services {

namespace {

GSErrCode specialFolder(const Int32* folder, IO::Location* location) {
    if (folder == nullptr || location == nullptr || *folder != API_HelpFolder) return APIERR_BADPARS;
    const auto program = programFolder();
    if (!program) return APIERR_GENERAL;
    *location = IO::Location((*program / "help").c_str());
    return NoError;
}

GSErrCode application(API_ReleaseNumber* release) {
    if (release == nullptr) return APIERR_BADPARS;
    *release = {};
    release->version = static_cast<Int32>(APIVersion);
    release->buildNumber = 1;
    return NoError;
}

}  // namespace

GSErrCode Environment(void*, UInt32 code, void* par1, void* par2, void*) {
    switch (code) {
        case APIEnv_GetSpecFolder:
            return specialFolder(static_cast<const Int32*>(par1), static_cast<IO::Location*>(par2));
        case APIEnv_Application:
            return application(static_cast<API_ReleaseNumber*>(par1));
        default:
            return APIERR_NOTSUPPORTED;
    }
}

}  // namespace host::services
