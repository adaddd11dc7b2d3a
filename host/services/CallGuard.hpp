#pragma once
// How the host calls an add-on's code: an exception or a crash of it ends the call, not the program.
//
// What a crash means here: the processor refused an instruction *of the add-on's own image* (a bad address, a division
// by zero, a trap, a stack used up) on the user's thread inside a guarded call. Then nothing of the host, of the C
// library or of another library was half done: the interrupted code is the add-on's, the frames given up reach from
// there to the guard and are the add-on's too, since every way from the host into the add-on has a guard of its own. So
// the host may go on, on condition that it never calls the add-on again.
//
// Every other fault takes its usual way and ends the program: one inside the host or a library, where a lock may be
// held or the heap be damaged; abort(); a fault on another thread. Saving is all or nothing, so no file is harmed by
// that.

#include "services/CodeRange.hpp"

#include <optional>
#include <string>

namespace host {

struct CallFault {
    bool crashed = false;      ///< Otherwise an exception.
    bool outOfMemory = false;  ///< The exception is std::bad_alloc.
    std::string what;          ///< "a segmentation fault"; the exception's message.
};

/// Runs `call(argument)`. @param code  the add-on's. @return nothing where the call came to its end.
std::optional<CallFault> runGuarded(const CodeRange& code, void (*call)(void* argument), void* argument);

template <class Body>
std::optional<CallFault> guarded(const CodeRange& code, Body body) {
    return runGuarded(
        code, [](void* argument) { (*static_cast<Body*>(argument))(); }, &body);
}

/// While one lives, faults of guarded calls are noticed. The signal handlers before it are put back by its destructor
/// and get every fault that is not the add-on's.
class FaultWatch {
public:
    FaultWatch();
    ~FaultWatch();
    FaultWatch(const FaultWatch&) = delete;
    FaultWatch& operator=(const FaultWatch&) = delete;
};

}  // namespace host
