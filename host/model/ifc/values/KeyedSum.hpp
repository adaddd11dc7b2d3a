#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace model::ifc {

/// 128 bits that stand for a text.
struct Fingerprint {
    std::uint64_t low = 0, high = 0;
    friend bool operator==(const Fingerprint&, const Fingerprint&) = default;
};

using FingerprintKey = std::array<std::uint64_t, 2>;

/// Another one each time.
FingerprintKey randomKey();

/// SipHash-1-3 with 128 bits: two texts that differ have, but for one chance in 2^128, different sums, and nobody who
/// does not know the key can write two that have the same. So a file cannot be made to hide what it changes.
Fingerprint keyedSum(std::string_view text, const FingerprintKey& key);

}  // namespace model::ifc
