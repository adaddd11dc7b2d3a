#pragma once
// What the frameworks themselves make of Core Foundation's objects.

#include <CoreFoundation/CoreFoundation.h>

#include <string_view>

namespace frameworks {

/// @return a bundle reference with one count, the caller's. @param path  the bundle's folder.
CFBundleRef createBundle(std::string_view path);

}  // namespace frameworks
