#include "model/step/disk/ContentSum.hpp"

namespace model::step {

std::uint64_t ContentSum::mixed(std::uint64_t sum, std::uint64_t word) {
    sum = (sum ^ word) * 0x9E3779B97F4A7C15U;
    return sum ^ sum >> 29U;
}

void ContentSum::add(std::string_view bytes) {
    const auto addByte = [this](char byte) {
        word_ |= std::uint64_t{static_cast<unsigned char>(byte)} << length_ % 8 * 8;
        if (++length_ % 8 != 0) return;
        sum_ = mixed(sum_, word_);
        word_ = 0;
    };
    std::size_t at = 0;
    while (at < bytes.size() && length_ % 8 != 0) addByte(bytes[at++]);
    for (; bytes.size() - at >= 8; at += 8, length_ += 8) {
        for (unsigned i = 0; i < 8; ++i) word_ |= std::uint64_t{static_cast<unsigned char>(bytes[at + i])} << i * 8;
        sum_ = mixed(sum_, word_);
        word_ = 0;
    }
    while (at < bytes.size()) addByte(bytes[at++]);
}

}  // namespace model::step
