#include "model/FailingMemory.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace {

/// How many more allocations succeed; negative where all do.
long allocationsLeft = -1;
bool failsFromThenOn = false;
bool hasFailed = false;

bool failsNow() {
    if (allocationsLeft < 0) return false;
    if (allocationsLeft > 0) {
        --allocationsLeft;
        return false;
    }
    hasFailed = true;
    if (!failsFromThenOn) allocationsLeft = -1;
    return true;
}

void* allocate(std::size_t size) {
    void* memory = failsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

}  // namespace

// All forms that a library may use lead here.
void* operator new(std::size_t size) {
    return allocate(size);
}
void* operator new[](std::size_t size) {
    return allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return failsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return failsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace failing_memory {

void failAt(long place, bool fromThenOn) {
    failsFromThenOn = fromThenOn;
    hasFailed = false;
    allocationsLeft = place;
}

void failNoMore() {
    allocationsLeft = -1;
}

Outcome withFailure(long place, bool fromThenOn, const std::function<void()>& body) {
    bool threw = false;
    failAt(place, fromThenOn);
    try {
        body();
    } catch (const std::bad_alloc&) {
        threw = true;
    }
    failNoMore();
    return threw ? Outcome::OutOfMemory : hasFailed ? Outcome::Done : Outcome::NeverFailed;
}

void atEachAllocation(const std::function<Outcome(long place, bool fromThenOn)>& run, long fewest) {
    constexpr long Most = 100'000;
    for (const bool fromThenOn : {false, true}) {
        long place = 0;
        while (run(place, fromThenOn) != Outcome::NeverFailed && !testing::Test::HasFailure()) ASSERT_LT(++place, Most);
        EXPECT_GE(place, fewest) << "hardly anything was tried";
    }
}

}  // namespace failing_memory
