#pragma once
// Finding the bundle that a loaded image lies in.

#include "GSRoot.hpp"

#include <CoreFoundation/CoreFoundation.h>

extern "C" {

/// Makes a bundle reference from an image's own header.
/// @param allocator    kCFAllocatorDefault.
/// @param imageHeader  any address inside the image's first mapped segment; the image's header as a rule.
/// @return a reference that the caller releases with CFRelease, or null where the image lies in no bundle (a folder
///         with a Contents folder above the image).
HOST_API CFBundleRef GSCFXBundleCreateFromMachHeader(CFAllocatorRef allocator, const void* imageHeader);
}
