// Calls the host with a handle that is not its own, and with none.

#include "AddOn.hpp"

namespace {

GSErrCode readWith(void* handle) {
    API_Element element{};
    element.header.guid = gallery::testElement();
    return gallery::callHost<HostSlot::Element_Get>(handle, &element, UInt32{0});
}

GSErrCode readWithForeignHandles(const API_MenuParams*) {
    char foreign = 0;
    gallery::tell("foreign", readWith(&foreign));
    gallery::tell("none", readWith(nullptr));
    return NoError;
}

}  // namespace

const gallery::Behaviour gallery::behaviour = {.command = &readWithForeignHandles};
