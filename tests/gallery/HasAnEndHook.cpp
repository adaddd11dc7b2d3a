// Sound, and has an end hook as the real one does: it closes what it has opened and says so.

#include "AddOn.hpp"
#include "ResourceManager.hpp"

#include <cstdlib>

namespace {

GSResModule module = InvalidResModule;

void endHook() {
    RSCloseResourceFile(module);
    DBPrintf("[the end hook ran]");
}

// First the hook and then the module, as in the real one: the registry of modules is the younger of the two.
__attribute__((constructor)) void startHook() {
    std::atexit(&endHook);
    module = RSOpenResourceFile(GALLERY_BUNDLE);
}

}  // namespace

const gallery::Behaviour gallery::behaviour = {};
