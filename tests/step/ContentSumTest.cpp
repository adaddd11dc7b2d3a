// The number by which a saver knows whether the file is still the one that it read.

#include "model/step/disk/ContentSum.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>

namespace {

using model::step::ContentSum;

std::uint64_t sumOf(const std::string& bytes) {
    ContentSum sum;
    sum.add(bytes);
    return sum.result();
}

std::string someBytes(std::mt19937& random, std::size_t size) {
    std::string bytes(size, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random() % 256);
    return bytes;
}

TEST(ContentSum, IsTheSameHoweverTheBytesAreCut) {
    std::mt19937 random(1);
    for (std::size_t size = 0; size < 200; ++size) {
        const std::string bytes = someBytes(random, size);
        ContentSum sum;
        for (std::size_t at = 0; at < size;) {
            const std::size_t taken = std::min<std::size_t>(random() % 70, size - at);
            sum.add(std::string_view(bytes).substr(at, taken));
            at += taken;
        }
        EXPECT_EQ(sum.result(), sumOf(bytes)) << size;
    }
}

TEST(ContentSum, IsAnotherOneForAnyBitThatChanges) {
    std::mt19937 random(2);
    for (const std::size_t size : {1U, 31U, 32U, 33U, 64U, 100U}) {
        std::string bytes = someBytes(random, size);
        const std::uint64_t before = sumOf(bytes);
        for (std::size_t bit = 0; bit < size * 8; ++bit) {
            const char flipped = static_cast<char>(1U << bit % 8);
            bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ flipped);
            EXPECT_NE(sumOf(bytes), before) << size << ' ' << bit;
            bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ flipped);
        }
    }
}

TEST(ContentSum, IsAnotherOneForBytesThatChangePlacesOrAreCutOff) {
    std::mt19937 random(3);
    const std::string bytes = someBytes(random, 160);
    for (std::size_t a = 0; a < bytes.size(); a += 8) {
        for (std::size_t b = a + 8; b < bytes.size(); b += 8) {
            std::string swapped = bytes;
            std::swap_ranges(&swapped[a], &swapped[a] + 8, &swapped[b]);
            EXPECT_NE(sumOf(swapped), sumOf(bytes)) << a << ' ' << b;
        }
    }
    for (std::size_t size = 0; size < bytes.size(); ++size) EXPECT_NE(sumOf(bytes.substr(0, size)), sumOf(bytes));
    EXPECT_NE(sumOf(std::string(32, '\0')), sumOf(std::string(64, '\0')));
    EXPECT_NE(sumOf(""), sumOf(std::string(1, '\0')));
}

}  // namespace
