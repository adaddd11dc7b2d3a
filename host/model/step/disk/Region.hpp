#pragma once
// Memory straight from the kernel, for the file's bytes and the index over them. A page costs nothing until it is
// touched, and growing moves page tables instead of bytes, so that neither estimates nor doubling copies are needed.

#include <cstddef>
#include <type_traits>
#include <utility>

namespace model::step {

/// Private zeroed memory, readable and writable. Throws std::bad_alloc where the system has no more.
class Region {
public:
    Region() = default;
    explicit Region(std::size_t size);
    Region(Region&& other) noexcept
        : base_(std::exchange(other.base_, nullptr)), length_(std::exchange(other.length_, 0)) {}
    Region& operator=(Region&& other) noexcept {
        std::swap(base_, other.base_);
        std::swap(length_, other.length_);
        return *this;
    }
    ~Region();

    char* data() { return base_; }
    const char* data() const { return base_; }
    std::size_t size() const { return length_; }
    /// Keeps the contents, moves them where necessary; what is added is zero.
    void resize(std::size_t size);

private:
    char* base_ = nullptr;
    std::size_t length_ = 0;
};

/// A vector for millions of small records. Its elements move in memory when it grows.
template <class Element>
class GrowingArray {
    static_assert(std::is_trivially_copyable_v<Element>);

public:
    std::size_t size() const { return count_; }
    Element& operator[](std::size_t index) { return elements()[index]; }
    const Element& operator[](std::size_t index) const { return elements()[index]; }

    void push_back(Element element) {
        if (count_ == capacity_) grow();
        elements()[count_++] = element;
    }

private:
    static constexpr std::size_t FirstBytes = std::size_t{1} << 16U;

    Element* elements() { return static_cast<Element*>(static_cast<void*>(memory_.data())); }
    const Element* elements() const { return static_cast<const Element*>(static_cast<const void*>(memory_.data())); }
    void grow() {
        memory_.resize(memory_.size() == 0 ? FirstBytes : memory_.size() * 2);
        capacity_ = memory_.size() / sizeof(Element);
    }

    Region memory_;
    std::size_t count_ = 0;
    std::size_t capacity_ = 0;
};

/// Zero bytes that must be readable behind a text to be indexed: the sweep reads in blocks.
inline constexpr std::size_t SlackBytes = 128;

}  // namespace model::step
