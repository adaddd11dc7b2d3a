#pragma once
// The host's resource manager: the texts and dialog layouts of a module, addressed by number.

#include "UniString.hpp"

/// An open resource file.
using GSResModule = Int64;
inline constexpr GSResModule InvalidResModule = -1;

/// Opens the resource file of a bundle.
/// @param bundlePath  the bundle's folder, UTF-8.
/// @return the module, closed with RSCloseResourceFile; InvalidResModule where it cannot be read or a definition in it
///         is wrong (the debug output then says where and why).
HOST_API GSResModule RSOpenResourceFile(const char* bundlePath);

/// @return 0, or RSErrNoModule.
HOST_API GSErrCode RSCloseResourceFile(GSResModule module);

/// Drops what the host keeps of the module's image resources. Called before the module is closed.
HOST_API void RSRemoveModuleImageCache(GSResModule module);

/// Reads text `index` (from 1) of string list `resID`, in the user's language where the module has it.
/// @return true; false (and an empty text) where the module, the list or the index is unknown.
HOST_API bool RSGetIndString(GS::UniString* text, Int32 resID, Int32 index, GSResModule module);

/// Reads text `index` (from 1) of the fixed (never translated) string list `resID`.
HOST_API bool RSGetIndFixString(GS::UniString* text, Int32 resID, Int32 index, GSResModule module);

inline constexpr GSErrCode RSErrNoModule = -1;
