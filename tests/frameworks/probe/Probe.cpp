// An image that asks for its own bundle, as an add-on's binding does.

#include "Bundle.hpp"

namespace {

const char Anchor = 0;

}  // namespace

extern "C" HOST_API CFBundleRef probeBundle() {
    return GSCFXBundleCreateFromMachHeader(kCFAllocatorDefault, &Anchor);
}
