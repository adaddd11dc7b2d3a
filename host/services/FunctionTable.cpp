#include "services/FunctionTable.hpp"

#include "services/Services.hpp"
#include "services/Session.hpp"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace host {

namespace {

constexpr const char* emptySlotReason(HostSlot slot) {
    switch (slot) {
#define EMPTY_SLOT(name, reason) \
    case HostSlot::name:         \
        return reason;
#include "services/EmptySlots.def"
#undef EMPTY_SLOT
        default:
            return nullptr;
    }
}

/// The operation of a slot. A member template, so that only those in use have to exist.
template <HostSlot slot>
struct Operation;
#define ACAPI_SLOT(number, name, result, parameters)                      \
    template <>                                                           \
    struct Operation<HostSlot::name> {                                    \
        template <class... Arguments>                                     \
        static result run(Arguments&&... arguments) {                     \
            return services::name(std::forward<Arguments>(arguments)...); \
        }                                                                 \
    };
#include "ACAPISlots.def"
#undef ACAPI_SLOT

template <class First, class...>
GSErrCode admit(HostSlot slot, const First& first) {
    if constexpr (std::is_same_v<First, void*>) {
        return admitClient(slot, first);
    } else {
        return admitRegistration();
    }
}

/// What an add-on calls: checks the caller. An exception of the host (there is no more memory) goes on through the
/// add-on to the guard of the call that the host made into it, as those of the frameworks' classes do. No error code
/// may stand for it: an add-on takes an error for "not there" and goes on, and what it would write then is wrong.
template <HostSlot slot, class Type>
struct Boundary;
template <HostSlot slot, class Result, class First, class... Rest>
struct Boundary<slot, Result (*)(First, Rest...)> {
    static Result call(First first, Rest... rest) {
        if (const GSErrCode refused = admit<First>(slot, first); refused != NoError) return failure(refused);
        return Operation<slot>::run(first, rest...);
    }

    static Result failure(GSErrCode code) {
        if constexpr (std::is_same_v<Result, GSErrCode>) return code;
    }
};

template <HostSlot slot>
void fillSlot(HostFunction* table) {
    if constexpr (emptySlotReason(slot) == nullptr) {
        using Entry = Boundary<slot, typename HostSlotFunction<slot>::Type>;
        table[static_cast<int>(slot)] = reinterpret_cast<HostFunction>(&Entry::call);
    }
}

}  // namespace

void fillFunctionTable(HostFunction* table) {
    std::fill_n(table, HostTableSize, nullptr);
#define ACAPI_SLOT(number, name, result, parameters) fillSlot<HostSlot::name>(table);
#include "ACAPISlots.def"
#undef ACAPI_SLOT
}

const char* reasonForEmptySlot(HostSlot slot) {
    return emptySlotReason(slot);
}

}  // namespace host
