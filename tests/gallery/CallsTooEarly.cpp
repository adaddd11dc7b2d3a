// Asks for an element, and for the host's release, before it is initialized.

#include "AddOn.hpp"

namespace {

GSErrCode callTooEarly() {
    API_Element element{};
    element.header.guid = gallery::testElement();
    gallery::tell("element", gallery::callHost<HostSlot::Element_Get>(nullptr, &element, UInt32{0}));
    API_ReleaseNumber release{};
    void* const none = nullptr;
    gallery::tell("release",
                  gallery::callHost<HostSlot::Environment>(none, UInt32{APIEnv_Application}, &release, none, none));
    return gallery::registerMenu();
}

}  // namespace

const gallery::Behaviour gallery::behaviour = {.registerInterface = &callTooEarly};
