#pragma once
// The load-time binding between host and add-on: the record of exported functions and the table of imported ones.
//
// Load sequence, on the user's thread:
//   1. The host loads the image. Its start hook GSInitImage runs by itself, finds the bundle it lies in from its own
//      image header and opens its resource module.
//   2. GetExportedFuncAddrs: the add-on fills the record below.
//   3. SetImportedFuncAddrs: the add-on copies the host's table.
//   4. checkEnvironment; an answer of 0 ends the sequence at step 8.
//   5. registerInterface, then initialize with the host's handle for the add-on. A result other than 0 ends at step 7.
//   6. Menu commands.
//   7. freeData.
//   8. The host unloads the image; GSTermImage runs at its end.

#include "APITypes.hpp"

/// The version of this binding: 19 in the upper 16 bits, 1 in the lower ones.
inline constexpr UInt32 APIInterfaceVersion = 0x00130001;
/// The version of the host interface: its records, constants and operations.
inline constexpr UInt32 APIVersion = 19000;

/// Number of slots in the host's function table.
inline constexpr int HostTableSize = 502;

/// An address in the table; cast to the slot's own type before it is called.
using HostFunction = void (*)();

/// The slots known by name.
enum class HostSlot : Int16 {
#define ACAPI_SLOT(number, name, result, parameters) name = (number),
#include "ACAPISlots.def"
#undef ACAPI_SLOT
};

/// The type of the host's function in a slot.
template <HostSlot slot>
struct HostSlotFunction;
#define ACAPI_SLOT(number, name, result, parameters) \
    template <>                                      \
    struct HostSlotFunction<HostSlot::name> {        \
        using Type = result(*) parameters;           \
        static constexpr const char* Name = #name;   \
    };
#include "ACAPISlots.def"
#undef ACAPI_SLOT

/// What GetExportedFuncAddrs fills. Little-endian; every byte not named is zero. The host calls the four functions on
/// the user's thread and none of them again once it has unloaded the image.
struct ExportedFunctions {
    UInt32 interfaceVersion;  ///< APIInterfaceVersion.
    UInt32 padding;
    /// Introduces the add-on in `envir`, the host's, valid during the call. @return an API_AddonType.
    API_AddonType (*checkEnvironment)(API_EnvirParams* envir);
    /// The one place for registrations. @return 0, or an error that ends the start.
    GSErrCode (*registerInterface)();
    /// @param clientPtr  the host's handle for the add-on: the first argument of nearly every slot, until freeData has
    ///                   returned. @return 0, or an error that ends the start.
    GSErrCode (*initialize)(void* clientPtr);
    /// The add-on gives back what it holds. @return of no use to the host.
    GSErrCode (*freeData)();
    UInt32 apiVersion;  ///< APIVersion.
    unsigned char reserved[76];
};
static_assert(sizeof(ExportedFunctions) == 120);
static_assert(offsetof(ExportedFunctions, checkEnvironment) == 8 && offsetof(ExportedFunctions, apiVersion) == 40);

/// The two entry points that an image exports by name. `record` is the host's, to be filled; `table` is the host's
/// array of HostTableSize addresses, valid during the call: the add-on copies it. @return 0, or an error that ends the
/// start.
using GetExportedFuncAddrsProc = void(ExportedFunctions* record);
using SetImportedFuncAddrsProc = GSErrCode(const HostFunction* table);
