#include "model/step/disk/ContentSum.hpp"

#include <algorithm>
#include <cstring>

namespace model::step {

namespace {

std::uint64_t mixed(std::uint64_t sum, std::uint64_t word) {
    sum = (sum ^ word) * 0x9E3779B97F4A7C15U;
    return sum ^ sum >> 29U;
}

}  // namespace

/// A sum has to wait for the one before it, so that four side by side take little longer than one.
void ContentSum::addBlock(const char* block) {
    Lanes words;
    std::memcpy(words.data(), block, BlockSize);
    for (std::size_t lane = 0; lane < words.size(); ++lane) lanes_[lane] = mixed(lanes_[lane], words[lane]);
}

void ContentSum::add(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t held = length_ % BlockSize;
        if (held == 0 && bytes.size() >= BlockSize) {
            const std::size_t whole = bytes.size() / BlockSize * BlockSize;
            for (std::size_t at = 0; at < whole; at += BlockSize) addBlock(bytes.data() + at);
            length_ += whole;
            bytes.remove_prefix(whole);
            continue;
        }
        const std::size_t taken = std::min(bytes.size(), BlockSize - held);
        std::copy_n(bytes.data(), taken, rest_.data() + held);
        length_ += taken;
        bytes.remove_prefix(taken);
        if (length_ % BlockSize == 0) addBlock(rest_.data());
    }
}

std::uint64_t ContentSum::result() const {
    std::uint64_t sum = length_;
    for (const std::uint64_t lane : lanes_) sum = mixed(sum, lane);
    for (std::size_t i = 0; i < length_ % BlockSize; ++i) sum = mixed(sum, static_cast<unsigned char>(rest_[i]));
    return sum;
}

}  // namespace model::step
