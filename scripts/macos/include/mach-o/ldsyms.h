#pragma once
// The one declaration of the system's header that the add-on takes: the cross compiler's headers do not have it.

struct mach_header_64;

/// Set by the linker: the header of the loadable image that this is linked into.
extern "C" const struct mach_header_64 _mh_bundle_header;
