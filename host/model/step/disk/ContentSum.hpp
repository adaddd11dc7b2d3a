#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace model::step {

/// A number for the bytes of a file, however they are cut into pieces: tells whether a file holds what it held. Against
/// accidents, not against somebody who wants to deceive.
class ContentSum {
public:
    void add(std::string_view bytes);
    std::uint64_t result() const;

private:
    using Lanes = std::array<std::uint64_t, 4>;
    static constexpr std::size_t BlockSize = sizeof(Lanes);

    void addBlock(const char* block);

    Lanes lanes_{1, 2, 3, 4};             ///< Different, so that words which change places are noticed.
    std::array<char, BlockSize> rest_{};  ///< The beginning of a block that is not full yet.
    std::uint64_t length_ = 0;            ///< In bytes.
};

}  // namespace model::step
