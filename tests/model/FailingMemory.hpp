#pragma once
// Memory that runs out where a test says: the program's own operator new, linked into the tests that ask for it.

#include <functional>

namespace failing_memory {

enum class Outcome { Done, OutOfMemory, NeverFailed };

/// The allocation of that number from now on fails, and with `fromThenOn` all behind it.
void failAt(long place, bool fromThenOn);
void failNoMore();

/// Runs `body` with one allocation failing, or all from that one on. @return OutOfMemory where std::bad_alloc left it,
/// Done where something failed and it did without.
Outcome withFailure(long place, bool fromThenOn, const std::function<void()>& body);

/// Calls `run` with each place in turn until nothing fails any more. @param fewest  fails the test where fewer places
/// were tried.
void atEachAllocation(const std::function<Outcome(long place, bool fromThenOn)>& run, long fewest = 5);

}  // namespace failing_memory
