#include "model/ifc/values/KeyedSum.hpp"

#include <bit>
#include <cstring>
#include <random>

namespace model::ifc {

namespace {

/// The state of SipHash, by the names of its authors.
struct State {
    std::uint64_t v0, v1, v2, v3;

    void round() {
        v0 += v1;
        v1 = std::rotl(v1, 13) ^ v0;
        v0 = std::rotl(v0, 32);
        v2 += v3;
        v3 = std::rotl(v3, 16) ^ v2;
        v0 += v3;
        v3 = std::rotl(v3, 21) ^ v0;
        v2 += v1;
        v1 = std::rotl(v1, 17) ^ v2;
        v2 = std::rotl(v2, 32);
    }
    void take(std::uint64_t word) {
        v3 ^= word;
        round();
        v0 ^= word;
    }
    std::uint64_t finish() {
        for (int i = 0; i < 3; ++i) round();
        return v0 ^ v1 ^ v2 ^ v3;
    }
};

}  // namespace

FingerprintKey randomKey() {
    std::random_device source;
    const auto word = [&] { return std::uint64_t{source()} << 32U | source(); };
    return {word(), word()};
}

Fingerprint keyedSum(std::string_view text, const FingerprintKey& key) {
    State state{key[0] ^ 0x736F6D6570736575U, key[1] ^ 0x646F72616E646F6DU ^ 0xEEU, key[0] ^ 0x6C7967656E657261U,
                key[1] ^ 0x7465646279746573U};
    std::size_t at = 0;
    for (; text.size() - at >= sizeof(std::uint64_t); at += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + at, sizeof word);
        state.take(word);
    }
    std::uint64_t last = std::uint64_t{text.size()} << 56U;
    for (unsigned i = 0; at < text.size(); ++at, ++i)
        last |= std::uint64_t{static_cast<unsigned char>(text[at])} << i * 8;
    state.take(last);
    // These two constants are what SipHash's authors give for sums of 128 bits, beside the one in the first state.
    state.v2 ^= 0xEEU;
    Fingerprint sum;
    sum.low = state.finish();
    state.v1 ^= 0xDDU;
    sum.high = state.finish();
    return sum;
}

}  // namespace model::ifc
