#include "Memory.hpp"
#include "Support.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

/// AddressSanitizer asks for its options under this name: a request that is too great is to fail as elsewhere.
extern "C" HOST_API const char* __asan_default_options() {
    return "allocator_may_return_null=1";
}

namespace {

bool isZero(const char* bytes, std::size_t from, std::size_t to) {
    return std::all_of(bytes + from, bytes + to, [](char byte) { return byte == 0; });
}

constexpr Int64 TooMuch = INT64_MAX / 2;

}  // namespace

TEST(Memory, ClearedHandleGrowsByClearedBytes) {
    GSHandle handle = BMAllocateHandle(0, ALLOCATE_CLEAR, 0);
    ASSERT_NE(handle, nullptr);
    EXPECT_NE(*handle, nullptr);
    EXPECT_EQ(BMGetHandleSize(handle), 0);
    EXPECT_EQ(BMError(), NoError);
    ASSERT_EQ(BMReallocHandle(handle, 40, ALLOCATE_CLEAR, 0), handle);
    EXPECT_TRUE(isZero(*handle, 0, 40));
    std::memset(*handle, 'x', 40);
    ASSERT_EQ(BMReallocHandle(handle, 80'000, ALLOCATE_CLEAR, 0), handle);
    EXPECT_EQ(BMGetHandleSize(handle), 80'000);
    EXPECT_EQ((*handle)[39], 'x');
    EXPECT_TRUE(isZero(*handle, 40, 80'000));
    ASSERT_EQ(BMReallocHandle(handle, 2, ALLOCATE_NORMAL, 0), handle);
    EXPECT_EQ(BMGetHandleSize(handle), 2);
    BMKillHandle(&handle);
    EXPECT_EQ(handle, nullptr);
}

TEST(Memory, FailedGrowthLeavesTheBlockToTheCaller) {
    GSHandle handle = BMAllocateHandle(4, ALLOCATE_NORMAL, 0);
    ASSERT_NE(handle, nullptr);
    std::memcpy(*handle, "abc", 4);
    EXPECT_EQ(BMReallocHandle(handle, TooMuch, ALLOCATE_CLEAR, 0), nullptr);
    EXPECT_EQ(BMError(), BMErrMemoryFull);
    EXPECT_EQ(BMReallocHandle(handle, -1, ALLOCATE_CLEAR, 0), nullptr);
    EXPECT_EQ(BMGetHandleSize(handle), 4);
    EXPECT_STREQ(*handle, "abc");
    BMKillHandle(&handle);
}

TEST(Memory, ImpossibleSizesAreRefused) {
    for (const Int64 size : {Int64{-1}, INT64_MIN, TooMuch, INT64_MAX}) {
        EXPECT_EQ(BMAllocateHandle(size, ALLOCATE_CLEAR, 0), nullptr) << size;
        EXPECT_EQ(BMError(), BMErrMemoryFull) << size;
        EXPECT_EQ(BMAllocatePtr(size, ALLOCATE_NORMAL, 0), nullptr) << size;
        EXPECT_EQ(BMError(), BMErrMemoryFull) << size;
    }
    GSPtr fine = BMAllocatePtr(1, ALLOCATE_NORMAL, 0);
    EXPECT_EQ(BMError(), NoError) << "the verdict is that of the last allocation";
    BMKillPtr(&fine);
}

TEST(Memory, PointerBlockKnowsItsSize) {
    GSPtr block = BMAllocatePtr(100, ALLOCATE_CLEAR, 0);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(BMGetPtrSize(block), 100);
    EXPECT_TRUE(isZero(block, 0, 100));
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0U);
    BMKillPtr(&block);
    EXPECT_EQ(block, nullptr);
}

TEST(Memory, NullIsLetPass) {
    GSHandle noHandle = nullptr;
    GSPtr noPtr = nullptr;
    BMKillHandle(&noHandle);
    BMKillHandle(nullptr);
    BMKillPtr(&noPtr);
    BMKillPtr(nullptr);
    EXPECT_EQ(BMGetHandleSize(nullptr), 0);
    EXPECT_EQ(BMGetPtrSize(nullptr), 0);
    EXPECT_EQ(BMReallocHandle(nullptr, 4, 0, 0), nullptr);
    EXPECT_EQ(BMError(), BMErrMemoryFull);
}
