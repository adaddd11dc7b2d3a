#pragma once
// A test in the place of an add-on: what is given to inCommand() runs inside a menu command of a loaded add-on, with
// that add-on's table and its handle.

#include "Gallery.hpp"

#include "HostTable.hpp"
#include "services/ErrorCodes.hpp"

#include <functional>
#include <string>
#include <string_view>

namespace testing_support {

class Probe : public Gallery {
protected:
    /// Opens a model and loads the probe.
    void probe(const IfcText& ifc = houseWithWall());
    /// @param outcome  what the host answers to the one who picked the command.
    void inCommand(std::function<void()> test, const char* outcome = "NoError");

    /// Calls a slot with the add-on's handle and these arguments.
    template <HostSlot slot, class... Arguments>
    auto call(Arguments&&... arguments) {
        const auto function = reinterpret_cast<typename HostSlotFunction<slot>::Type>(table_[static_cast<int>(slot)]);
        return function(client_, static_cast<Arguments&&>(arguments)...);
    }

    // The operations with the arguments that hardly ever differ.
    GSErrCode goodies(UInt32 code, void* par1, void* par2);
    GSErrCode interface(UInt32 code, void* par1, void* par2 = nullptr);
    GSErrCode environment(UInt32 code, void* par1, void* par2 = nullptr);
    GSErrCode command(const std::function<GSErrCode()>& body);
    GSErrCode setAttribute(std::string_view guid, const char* name, const char* value);

    const HostFunction* table_ = nullptr;
    void* client_ = nullptr;
};

API_Guid apiGuid(std::string_view guid);

/// An error code by its name, so that a failing test shows it.
inline std::string named(GSErrCode code) {
    return code == NoError ? "NoError" : host::errorName(code);
}

}  // namespace testing_support
