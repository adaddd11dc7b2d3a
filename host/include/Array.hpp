#pragma once
// GS::Array: the host's array container.

#include "GSRoot.hpp"

#include <vector>

namespace GS {

/// A growable array with value semantics. It owns its elements. Indices count from 0.
template <class Type>
class Array {
public:
    using ConstIterator = typename std::vector<Type>::const_iterator;

    USize GetSize() const { return static_cast<USize>(elements_.size()); }
    bool IsEmpty() const { return elements_.empty(); }

    /// @pre index < GetSize().
    Type& operator[](UIndex index) { return elements_[index]; }
    const Type& operator[](UIndex index) const { return elements_[index]; }

    void Push(const Type& element) { elements_.push_back(element); }
    void Push(Type&& element) { elements_.push_back(static_cast<Type&&>(element)); }
    /// For the host's side: adds what `make` returns, made in its place. A record of four texts costs more to move than
    /// to make.
    template <class Make>
    void PushMade(const Make& make) {
        elements_.emplace_back(Maker<Make>{make});
    }
    void Clear() { elements_.clear(); }
    void SetCapacity(USize capacity) { elements_.reserve(capacity); }

    ConstIterator begin() const { return elements_.begin(); }
    ConstIterator end() const { return elements_.end(); }

private:
    template <class Make>
    struct Maker {
        const Make& make;
        operator Type() const { return make(); }
    };

    std::vector<Type> elements_;
};

}  // namespace GS
