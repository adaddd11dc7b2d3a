#include "model/step/disk/Region.hpp"

#include <sys/mman.h>

#include <new>

namespace model::step {

namespace {

/// Fewer, larger pages: faulting in 4 KiB at a time would cost more than reading the file. Only advice; where the
/// system has no such pages nothing is lost.
void preferLargePages(void* base, std::size_t size) {
    constexpr std::size_t WorthIt = std::size_t{4} << 20U;
    if (size >= WorthIt) ::madvise(base, size, MADV_HUGEPAGE);
}

}  // namespace

Region::Region(std::size_t size) {
    if (size == 0) return;
    // Fresh pages are zeros and take no memory until they are touched: the table of ids needs no pass to be set up.
    void* memory = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    preferLargePages(memory, size);
    base_ = static_cast<char*>(memory);
    length_ = size;
}

Region::~Region() {
    if (base_ != nullptr) ::munmap(base_, length_);
}

void Region::resize(std::size_t size) {
    if (base_ == nullptr) {
        *this = Region(size);
        return;
    }
    // Moves pages and not bytes, so that what grows is never in memory twice.
    void* memory = ::mremap(base_, length_, size, MREMAP_MAYMOVE);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    preferLargePages(memory, size);
    base_ = static_cast<char*>(memory);
    length_ = size;
}

}  // namespace model::step
