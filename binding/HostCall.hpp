#pragma once
// One call through the host's function table. The slot's number and the type of the host's function behind it come from
// the host's own list, so a forwarder whose arguments do not fit that type does not compile.

#include "HostTable.hpp"

#include <type_traits>

/// The host's function table, copied in by SetImportedFuncAddrs; all null before.
extern HostFunction gImpList[HostTableSize];
/// The host's handle for this add-on, from My_Initialize to My_FreeData; null at every other time.
extern void* gOwnClientPtr;

/// What a member answers when the host left its slot empty: a result code says so, an object is null, and a member
/// without a result returns at once.
template <class Result>
Result answerOfEmptySlot() {
    if constexpr (std::is_same_v<Result, GSErrCode>) {
        return APIERR_NOTSUPPORTED;
    } else if constexpr (std::is_pointer_v<Result>) {
        return nullptr;
    } else {
        static_assert(std::is_void_v<Result>);
    }
}

/// Calls the host's function in `slot`; for the members that need no client handle.
template <HostSlot slot, class... Arguments>
auto callHostWithoutClient(const Arguments&... arguments) {
    using Function = typename HostSlotFunction<slot>::Type;
    using Result = std::invoke_result_t<Function, const Arguments&...>;
    static_assert(static_cast<int>(slot) >= 0 && static_cast<int>(slot) < HostTableSize);

    const auto function = reinterpret_cast<Function>(gImpList[static_cast<int>(slot)]);
    return function == nullptr ? answerOfEmptySlot<Result>() : function(arguments...);
}

/// The same with the client handle first.
template <HostSlot slot, class... Arguments>
auto callHost(const Arguments&... arguments) {
    return callHostWithoutClient<slot>(gOwnClientPtr, arguments...);
}
