#pragma once
// The host's root types and runtime services. Every other header of the host interface builds on this one.
//
// Roles, used with the same words everywhere:
//   host        the program that loads the add-on and owns the model, the dialogs and the undo queue;
//   add-on      the loadable module that meets the host through two swapped tables of function addresses;
//   front end   the part of the host that a person sees: a terminal, a script or a window;
//   user's thread  the one thread on which the host calls the add-on and the add-on calls the host.
//
// Unless a declaration says otherwise, every operation of the host interface is called on the user's thread, from
// inside a call that the host made into the add-on.

#include <cstddef>
#include <cstdint>

#if defined(__GNUC__)
#define HOST_API __attribute__((visibility("default")))
#else
#define HOST_API
#endif

using Int16 = std::int16_t;
using UInt16 = std::uint16_t;
using Int32 = std::int32_t;
using UInt32 = std::uint32_t;
using Int64 = std::int64_t;
using UInt64 = std::uint64_t;

/// Host error code: 0 = no error. Failures of the add-on interface are 0x81060000 plus a number (APITypes.hpp);
/// those of the support frameworks are small negative numbers named beside the operation that returns them.
using GSErrCode = Int32;
inline constexpr GSErrCode NoError = 0;

/// A block of the host's memory manager (Memory.hpp).
using GSPtr = char*;
/// A relocatable block: a pointer to the host's master pointer of it.
using GSHandle = char**;

/// Index and length of the host's texts and arrays.
using UIndex = UInt32;
using USize = UInt32;
/// "Not found". Read as a signed number it is -1.
inline constexpr UIndex MaxUIndex = 0xFFFFFFFFU;

/// Four characters as one number, the first in the most significant byte: 'GSPF' is 0x47535046.
constexpr UInt32 GSFourCharCode(const char (&code)[5]) {
    UInt32 value = 0;
    for (int i = 0; i < 4; ++i) value = value << 8U | static_cast<unsigned char>(code[i]);
    return value;
}

extern "C" {

/// A module image's start hook.
using GSInitImageProc = GSErrCode (*)();

/// Asks whether the image that is being loaded must wait for the host runtime.
/// @param initImage  the image's own start hook; not null. Where the answer is true the runtime keeps it and calls
///                   it exactly once when the runtime is ready; the image does nothing until then.
/// @return true: deferred; false: the image starts now.
HOST_API bool GSRoot_DelayInitImage(GSInitImageProc initImage);

/// Sounds the system beep. Never fails; a machine without a bell stays silent.
HOST_API void GSSysBeep();

/// Fills `count` bytes at `target` (the caller's, at least that long) with `value`.
HOST_API void BNFillMemory(void* target, USize count, unsigned char value);

/// Copies a zero-terminated text, at most `size` bytes of it with the terminator, which is always written.
/// @param target  the caller's buffer of `size` bytes. With `size` 0 nothing is written.
/// A UTF-8 sequence that would be cut is left out whole.
HOST_API void CHTruncate(const char* source, char* target, USize size);
}

/// One argument of DBPrintf with its kind.
struct DBArgument {
    enum class Kind : unsigned char { Integer, Real, Text, Address };
    Kind kind;
    union {
        Int64 integer;
        double real;
        const char* text;
        const void* address;
    };

    DBArgument(int value) : kind(Kind::Integer), integer(value) {}
    DBArgument(unsigned value) : kind(Kind::Integer), integer(value) {}
    DBArgument(long value) : kind(Kind::Integer), integer(value) {}
    DBArgument(unsigned long value) : kind(Kind::Integer), integer(static_cast<Int64>(value)) {}
    DBArgument(long long value) : kind(Kind::Integer), integer(value) {}
    DBArgument(unsigned long long value) : kind(Kind::Integer), integer(static_cast<Int64>(value)) {}
    DBArgument(double value) : kind(Kind::Real), real(value) {}
    DBArgument(const char* value) : kind(Kind::Text), text(value) {}
    DBArgument(const void* value) : kind(Kind::Address), address(value) {}
};

/// DBPrintf with its arguments as records. `format` may be null (nothing is printed).
HOST_API void DBPrintfArguments(const char* format, const DBArgument* arguments, USize count);

/// Writes to the host's debug output, which the user does not see. Never undefined: a conversion without a matching
/// argument is printed as it stands, "%%" prints "%". So a text from the model can be handed over as a format.
inline void DBPrintf(const char* format) {
    DBPrintfArguments(format, nullptr, 0);
}

template <class... Arguments>
void DBPrintf(const char* format, Arguments... arguments) {
    const DBArgument list[] = {DBArgument(arguments)...};
    DBPrintfArguments(format, list, sizeof...(arguments));
}
