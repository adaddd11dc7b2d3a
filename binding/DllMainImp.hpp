#pragma once
// The image's start and end: where its bundle lies, and its resource module.

#include "Bundle.hpp"
#include "Platform.hpp"
#include "ResourceManager.hpp"

/// A function without arguments or result, called when the add-on is torn down abnormally.
using DllTermHookProc = void (*)();

/// The add-on's own resource file, open from image start to image end; InvalidResModule when there is none.
extern GSResModule gOwnResModule;
/// The file-system path of the bundle, UTF-8; an empty text before image start, and where the path cannot be had.
extern const char* gOwnLocationData;
/// The bundle's file name, UTF-8.
extern char gDllFileName[256];
/// Null unless the add-on has set one.
extern DllTermHookProc gDllTermHookProc;

/// Holds the path that GetBundlePath returns.
extern char GetBundlePath_bundlePath[1024];
/// What GetBundlePath returns where the path cannot be had.
extern const char GetBundlePath_emptyStr[1];

extern "C" {
/// The start hook: finds the bundle and opens its resource module. Called again by the host runtime where that asked
/// for the start to wait. @return 0.
IMAGE_EXPORT GSErrCode GSInitImage();

/// The end hook: closes the resource module, and says so where the host never ended its use of the add-on.
IMAGE_EXPORT void GSTermImage();
}

/// The path of a bundle in normal form C, as UTF-8. @param context  may be null.
/// @return GetBundlePath_bundlePath, or GetBundlePath_emptyStr: a path that does not fit is no path, never a cut one.
const char* GetBundlePath(CFBundleRef context);

/// Where the resource module is, and where the add-on is: both the path of the bundle, as GetBundlePath gives it.
const char* DllMainImp_GetResModuleSpec(CFBundleRef context);
const char* DllMainImp_GetLocation(CFBundleRef context);

/// @return the bundle's resource module, or InvalidResModule.
GSResModule DllMainImp_OpenResModule(CFBundleRef context);

/// @param spec  points at a bundle path; it and what it points at may be null. @return the module or InvalidResModule.
GSResModule DllMainImp_OpenResModuleFromSpec(const char* const* spec);

/// The module's number is unknown afterwards.
void DllMainImp_CloseResModule(GSResModule module);
