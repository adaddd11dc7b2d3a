// The characters that matter in 64 bytes at once, as bit masks: bit i speaks of byte i. Compiled once for each set of
// vector instructions (Highway's foreach_target), and therefore without #pragma once.

#if defined(HOST_MODEL_STEP_READING_BLOCK_INL) == defined(HWY_TARGET_TOGGLE)
#ifdef HOST_MODEL_STEP_READING_BLOCK_INL
#undef HOST_MODEL_STEP_READING_BLOCK_INL
#else
#define HOST_MODEL_STEP_READING_BLOCK_INL
#endif

#include <hwy/highway.h>

#include <bit>
#include <cstdint>

HWY_BEFORE_NAMESPACE();
namespace model::step::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

struct Block {
    static constexpr std::ptrdiff_t Size = 64;  ///< Bytes read at once: as many as a mask has bits.

    std::uint64_t semicolons, quotes, opening, closing, equals, slashes, hashes;
    std::uint64_t controls;     ///< Below the blank.
    std::uint64_t beyondSlash;  ///< Letters, digits and all else that can stand neither behind a string nor behind its
                                ///< first half.
};

/// All masks of the 64 bytes from `at` on, which must be readable (see SlackBytes). Those that a caller does not use
/// are not computed once this is inlined.
HWY_INLINE Block readBlock(const char* at) {
    const hn::CappedTag<std::uint8_t, Block::Size> bytes;
    const auto* from = reinterpret_cast<const std::uint8_t*>(at);
    Block block{};
    for (std::size_t i = 0; i < 64; i += hn::Lanes(bytes)) {
        const auto part = hn::LoadU(bytes, from + i);
        const auto note = [&](std::uint64_t& mask, auto found) {
            std::uint64_t bits = 0;
            hn::StoreMaskBits(bytes, found, reinterpret_cast<std::uint8_t*>(&bits));
            mask |= bits << i;
        };
        const auto same = [&](char c) { return hn::Eq(part, hn::Set(bytes, static_cast<std::uint8_t>(c))); };
        const auto upTo = [&](char c) {
            return hn::Eq(hn::Min(part, hn::Set(bytes, static_cast<std::uint8_t>(c))), part);
        };
        note(block.semicolons, same(';'));
        note(block.quotes, same('\''));
        note(block.opening, same('('));
        note(block.closing, same(')'));
        note(block.equals, same('='));
        note(block.slashes, same('/'));
        note(block.hashes, same('#'));
        note(block.controls, upTo(31));
        note(block.beyondSlash, upTo('/'));
    }
    block.beyondSlash = ~block.beyondSlash;
    return block;
}

/// Bit i of the result is the parity of the bits 0 to i: with the quotes of a text, what is inside strings. The two
/// apostrophes of a doubled one cancel each other out.
HWY_INLINE std::uint64_t prefixParity(std::uint64_t bits) {
#if HWY_TARGET == HWY_AVX2 || HWY_TARGET == HWY_AVX3
    // A product without carries by all ones adds each bit to all above it.
    const hn::Full128<std::uint64_t> pair;
    return hn::GetLane(hn::CLMulLower(hn::Set(pair, bits), hn::Set(pair, ~std::uint64_t{0})));
#else
    for (unsigned shift = 1; shift < 64; shift *= 2) bits ^= bits << shift;
    return bits;
#endif
}

/// How many more bits `a` has than `b`.
HWY_INLINE int difference(std::uint64_t a, std::uint64_t b) {
    return std::popcount(a) - std::popcount(b);
}

}  // namespace model::step::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
