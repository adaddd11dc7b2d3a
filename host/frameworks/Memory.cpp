#include "Memory.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

thread_local GSErrCode lastVerdict = NoError;

/// What a handle points at: the master pointer comes first, so that the handle is the record's address.
struct Block {
    char* content;
    Int64 size;
};

/// Stands before the bytes of a pointer block, which keep the alignment that malloc gives.
struct alignas(alignof(std::max_align_t)) PointerHeader {
    Int64 size;
};

Block* blockOf(GSHandle handle) {
    return reinterpret_cast<Block*>(handle);
}

PointerHeader* headerOf(GSPtr ptr) {
    return reinterpret_cast<PointerHeader*>(ptr) - 1;
}

/// A block of size 0 has an address of its own, too, so that null means failure and nothing else.
std::size_t bytesFor(Int64 size) {
    return static_cast<std::size_t>(std::max<Int64>(size, 1));
}

template <class Result>
Result verdict(Result result) {
    lastVerdict = result == nullptr ? BMErrMemoryFull : NoError;
    return result;
}

}  // namespace

GSHandle BMAllocateHandle(Int64 size, Int32 flags, Int32) {
    const GSHandle none = nullptr;
    if (size < 0) return verdict(none);
    auto* const block = static_cast<Block*>(std::malloc(sizeof(Block)));
    if (block == nullptr) return verdict(none);
    const std::size_t bytes = bytesFor(size);
    void* const content = (flags & ALLOCATE_CLEAR) != 0 ? std::calloc(bytes, 1) : std::malloc(bytes);
    if (content == nullptr) {
        std::free(block);
        return verdict(none);
    }
    *block = Block{static_cast<char*>(content), size};
    return verdict(&block->content);
}

GSHandle BMReallocHandle(GSHandle handle, Int64 size, Int32 flags, Int32) {
    const GSHandle none = nullptr;
    if (handle == nullptr || size < 0) return verdict(none);
    Block& block = *blockOf(handle);
    auto* const content = static_cast<char*>(std::realloc(block.content, bytesFor(size)));
    if (content == nullptr) return verdict(none);
    if (size > block.size && (flags & ALLOCATE_CLEAR) != 0)
        std::memset(content + block.size, 0, static_cast<std::size_t>(size - block.size));
    block = Block{content, size};
    return verdict(handle);
}

void BMKillHandle(GSHandle* handle) {
    if (handle == nullptr || *handle == nullptr) return;
    std::free(blockOf(*handle)->content);
    std::free(blockOf(*handle));
    *handle = nullptr;
}

Int64 BMGetHandleSize(GSHandle handle) {
    return handle == nullptr ? 0 : blockOf(handle)->size;
}

GSPtr BMAllocatePtr(Int64 size, Int32 flags, Int32) {
    const GSPtr none = nullptr;
    constexpr Int64 Most = INT64_MAX - static_cast<Int64>(sizeof(PointerHeader));
    if (size < 0 || size > Most) return verdict(none);
    const std::size_t bytes = sizeof(PointerHeader) + static_cast<std::size_t>(size);
    auto* const header =
        static_cast<PointerHeader*>((flags & ALLOCATE_CLEAR) != 0 ? std::calloc(bytes, 1) : std::malloc(bytes));
    if (header == nullptr) return verdict(none);
    header->size = size;
    return verdict(reinterpret_cast<GSPtr>(header + 1));
}

void BMKillPtr(GSPtr* ptr) {
    if (ptr == nullptr || *ptr == nullptr) return;
    std::free(headerOf(*ptr));
    *ptr = nullptr;
}

Int64 BMGetPtrSize(GSPtr ptr) {
    return ptr == nullptr ? 0 : headerOf(ptr)->size;
}

GSErrCode BMError() {
    return lastVerdict;
}
