#pragma once
// What differs from system to system in the way a loadable image is made: its own header, its start hook, its exports.

#if defined(__APPLE__)
#include <mach-o/ldsyms.h>
#else
/// Set by the linker: the first byte of the image's own ELF header. Hidden, so that each image sees its own.
extern "C" __attribute__((visibility("hidden"))) const char __ehdr_start;
#endif

/// Marks a function that the host finds by its name. Everything else stays inside the image.
#define IMAGE_EXPORT __attribute__((visibility("default")))

/// Marks the function that the loader runs by itself when it has mapped the image.
#define IMAGE_START_HOOK __attribute__((constructor))

/// The header of the image that this is compiled into: whoever has it can find the bundle that the image lies in.
inline const void* ownImageHeader() {
#if defined(__APPLE__)
    return &_mh_bundle_header;
#else
    return &__ehdr_start;
#endif
}
