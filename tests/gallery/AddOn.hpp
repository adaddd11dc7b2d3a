#pragma once
// A small add-on that keeps every rule. Each source of the gallery links it and puts one fault in its place.

#include "DialogManager.hpp"
#include "HostTable.hpp"

#include <string>

namespace gallery {

inline constexpr Int16 MenuId = 100;
inline constexpr Int16 PromptsId = 101;
inline constexpr Int16 DialogId = 200;

// --- The rules kept ------------------------------------------------------------------------------------------------

API_AddonType introduceItself(API_EnvirParams* envir);
GSErrCode registerMenu();
GSErrCode installHandler();
GSErrCode succeed();
GSErrCode acceptTable();
GSErrCode doNothing(const API_MenuParams* params);

/// What an add-on of the gallery is made of.
struct Behaviour {
    UInt32 interfaceVersion = APIInterfaceVersion;
    UInt32 apiVersion = APIVersion;
    API_AddonType (*checkEnvironment)(API_EnvirParams*) = &introduceItself;
    GSErrCode (*registerInterface)() = &registerMenu;
    GSErrCode (*initialize)() = &installHandler;
    GSErrCode (*freeData)() = &succeed;
    GSErrCode (*afterTable)() = &acceptTable;
    APIMenuCommandProc* command = &doNothing;
    bool leaveOutFreeData = false;
};

/// Defined by each source of the gallery.
extern const Behaviour behaviour;

// --- Calls to the host ---------------------------------------------------------------------------------------------

extern HostFunction table[HostTableSize];
extern void* client;

/// Calls a slot with its arguments as they are.
template <HostSlot slot, class... Arguments>
auto callHost(Arguments&&... arguments) {
    const auto function = reinterpret_cast<typename HostSlotFunction<slot>::Type>(table[static_cast<int>(slot)]);
    return function(static_cast<Arguments&&>(arguments)...);
}

/// Writes the result of a call into the host's report, where a test finds it: "LABEL: -2130313215".
void tell(const std::string& label, GSErrCode result);

/// Changes the name of the element that the tests make.
GSErrCode renameElement(const char* name);
API_Guid testElement();

/// Runs a function of this add-on as an undoable command.
GSErrCode runCommand(GSErrCode (*command)());

// --- Faults --------------------------------------------------------------------------------------------------------

/// Writes to an address where nothing is.
void writeToNowhere();

}  // namespace gallery
