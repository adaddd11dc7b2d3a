#include "DllMainImp.hpp"

#include "ACAPlib.hpp"

#include <cstdlib>
#include <memory>
#include <type_traits>

char GetBundlePath_bundlePath[1024] = "";
const char GetBundlePath_emptyStr[1] = "";

GSResModule gOwnResModule = InvalidResModule;
const char* gOwnLocationData = GetBundlePath_emptyStr;
char gDllFileName[256] = "";
DllTermHookProc gDllTermHookProc = nullptr;

// --- Core Foundation -----------------------------------------------------------------------------------------------

/// Owns a Core Foundation object, so that it is released on every path. Null is allowed.
template <class Reference>
using CFHolder = std::unique_ptr<std::remove_pointer_t<Reference>, decltype(&CFRelease)>;

template <class Reference>
static CFHolder<Reference> hold(Reference object) {
    return CFHolder<Reference>(object, &CFRelease);
}

static CFHolder<CFURLRef> bundleURL(CFBundleRef bundle) {
    return hold(bundle == nullptr ? nullptr : CFBundleCopyBundleURL(bundle));
}

template <std::size_t size>
static bool copyUTF8(CFStringRef text, char (&buffer)[size]) {
    return CFStringGetCString(text, buffer, static_cast<CFIndex>(size), kCFStringEncodingUTF8) != 0;
}

// --- The bundle ----------------------------------------------------------------------------------------------------

/// Keeps the bundle's file name; without one, and where it does not fit, the name stays empty.
static void keepFileName(CFBundleRef bundle) {
    const auto url = bundleURL(bundle);
    if (url == nullptr) return;
    const auto name = hold(CFURLCopyLastPathComponent(url.get()));
    if (name == nullptr || !copyUTF8(name.get(), gDllFileName)) gDllFileName[0] = '\0';
}

const char* GetBundlePath(CFBundleRef context) {
    const auto url = bundleURL(context);
    if (url == nullptr) return GetBundlePath_emptyStr;
    const auto path = hold(CFURLCopyFileSystemPath(url.get(), kCFURLPOSIXPathStyle));
    if (path == nullptr) return GetBundlePath_emptyStr;
    const auto normalised = hold(CFStringCreateMutableCopy(kCFAllocatorDefault, 0, path.get()));
    if (normalised == nullptr) return GetBundlePath_emptyStr;
    CFStringNormalize(normalised.get(), kCFStringNormalizationFormC);
    return copyUTF8(normalised.get(), GetBundlePath_bundlePath) ? GetBundlePath_bundlePath : GetBundlePath_emptyStr;
}

const char* DllMainImp_GetResModuleSpec(CFBundleRef context) {
    return GetBundlePath(context);
}

const char* DllMainImp_GetLocation(CFBundleRef context) {
    return GetBundlePath(context);
}

// --- The resource module -------------------------------------------------------------------------------------------

GSResModule DllMainImp_OpenResModule(CFBundleRef context) {
    const char* path = GetBundlePath(context);
    return path[0] == '\0' ? InvalidResModule : RSOpenResourceFile(path);
}

GSResModule DllMainImp_OpenResModuleFromSpec(const char* const* spec) {
    if (spec == nullptr || *spec == nullptr) return InvalidResModule;
    return RSOpenResourceFile(*spec);
}

void DllMainImp_CloseResModule(GSResModule module) {
    RSRemoveModuleImageCache(module);
    RSCloseResourceFile(module);
}

// --- Start and end of the image ------------------------------------------------------------------------------------

IMAGE_START_HOOK GSErrCode GSInitImage() {
    if (GSRoot_DelayInitImage(&GSInitImage)) return NoError;

    // Inside a loadable image the C library ties the registration to the image: the hook also runs when it is unloaded.
    std::atexit(&GSTermImage);

    const auto bundle = hold(GSCFXBundleCreateFromMachHeader(kCFAllocatorDefault, ownImageHeader()));
    keepFileName(bundle.get());
    gOwnLocationData = GetBundlePath(bundle.get());
    gOwnResModule = DllMainImp_OpenResModule(bundle.get());
    return NoError;
}

static void reportAbnormalTermination() {
    DBPrintf("Abnormal add-on termination (\"%s\")", gOwnLocationData);
    if (gDllTermHookProc == nullptr) {
        DBPrintf("\n");
        return;
    }
    DBPrintf(", calling custom DllTermHookProc\n");
    gDllTermHookProc();
}

void GSTermImage() {
    if (gOwnResModule != InvalidResModule) DllMainImp_CloseResModule(gOwnResModule);
    gOwnResModule = InvalidResModule;

    // The host's handle is still there: the host never called My_FreeData.
    if (gOwnClientPtr != nullptr) reportAbnormalTermination();
    gOwnClientPtr = nullptr;
}
