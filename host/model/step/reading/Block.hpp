#pragma once
// The characters that matter in 64 bytes at once, as bit masks: bit i speaks of byte i.

#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace model::step {

struct Block {
    static constexpr std::size_t Size = 64;  ///< Bytes read at once: as many as a mask has bits.

    std::uint64_t semicolons, quotes, opening, closing, equals, slashes, hashes;
    std::uint64_t controls;     ///< Below the blank.
    std::uint64_t beyondSlash;  ///< Letters, digits and all else that can stand neither behind a string nor behind its
                                ///< first half.
};

#if defined(__SSE2__)

/// All masks of the 64 bytes from `at` on, which must be readable (see SlackBytes). Those that a caller does not use
/// are not computed once this is inlined. SSE2 is part of every x86-64, so that nothing is asked at run time.
inline Block readBlock(const char* at) {
    __m128i part[4];
    std::memcpy(part, at, sizeof part);
    const auto mask = [&part](auto compare) {
        std::uint64_t bits = 0;
        for (unsigned i = 0; i < 4; ++i)
            bits |= static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(compare(part[i])))) << (16 * i);
        return bits;
    };
    const auto same = [&mask](char c) {
        return mask([c](__m128i bytes) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c)); });
    };
    const auto upTo = [&mask](char c) {
        return mask([c](__m128i bytes) { return _mm_cmpeq_epi8(_mm_min_epu8(bytes, _mm_set1_epi8(c)), bytes); });
    };
    return {same(';'), same('\''), same('('), same(')'), same('='), same('/'), same('#'), upTo(31), ~upTo('/')};
}

#else

inline Block readBlock(const char* at) {
    Block block{};
    for (unsigned i = 0; i < Block::Size; ++i) {
        const std::uint64_t bit = std::uint64_t{1} << i;
        const auto note = [&](std::uint64_t& mask, bool there) { mask |= there ? bit : 0; };
        const char c = at[i];
        note(block.semicolons, c == ';');
        note(block.quotes, c == '\'');
        note(block.opening, c == '(');
        note(block.closing, c == ')');
        note(block.equals, c == '=');
        note(block.slashes, c == '/');
        note(block.hashes, c == '#');
        note(block.controls, static_cast<unsigned char>(c) < 32);
        note(block.beyondSlash, static_cast<unsigned char>(c) > '/');
    }
    return block;
}

#endif

/// Bit i of the result is the parity of the bits 0 to i: with the quotes of a text, what is inside strings. The two
/// apostrophes of a doubled one cancel each other out.
constexpr std::uint64_t prefixParity(std::uint64_t bits) {
    for (unsigned shift = 1; shift < 64; shift *= 2) bits ^= bits << shift;
    return bits;
}

/// The number of bits set in each byte. By hand, since the machines this is compiled for need not have an instruction
/// for it, and the library's function is called for each.
constexpr std::uint64_t bitsPerByte(std::uint64_t bits) {
    constexpr std::uint64_t Every2 = 0x5555555555555555U;
    constexpr std::uint64_t Every4 = 0x3333333333333333U;
    bits -= bits >> 1U & Every2;
    bits = (bits & Every4) + (bits >> 2U & Every4);
    return (bits + (bits >> 4U)) & 0x0F0F0F0F0F0F0F0FU;
}

/// How many more bits `a` has than `b`.
constexpr int difference(std::uint64_t a, std::uint64_t b) {
    // Each byte of the first sum is at least 8, so that the subtraction borrows nothing; the product adds them up.
    constexpr std::uint64_t Eights = 0x0808080808080808U;
    constexpr std::uint64_t Ones = 0x0101010101010101U;
    const std::uint64_t differences = bitsPerByte(a) + Eights - bitsPerByte(b);
    return static_cast<int>(differences * Ones >> 56U) - 64;
}

}  // namespace model::step
