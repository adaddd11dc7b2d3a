#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace model::step {

/// A number for the bytes of a file, however they are cut into pieces: tells whether a file holds what it held. Against
/// accidents, not against somebody who wants to deceive.
class ContentSum {
public:
    void add(std::string_view bytes);
    std::uint64_t result() const { return mixed(sum_ ^ word_, length_); }

private:
    static std::uint64_t mixed(std::uint64_t sum, std::uint64_t word);

    std::uint64_t sum_ = 0;
    std::uint64_t word_ = 0;    ///< The bytes of the word that is not full yet, the first in the lowest bits.
    std::uint64_t length_ = 0;  ///< In bytes.
};

}  // namespace model::step
