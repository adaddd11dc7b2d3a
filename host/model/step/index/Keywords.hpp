#pragma once
// The keywords of a file, numbered in order of first appearance. Looked up once for each instance, so that finding one
// seen before costs a hash and a comparison of the bytes as they stand, whatever their case.

#include "model/step/index/Slot.hpp"

#include <cstdint>
#include <cstring>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace model::step {

class Keywords {
public:
    Keywords() : table_(512) {}

    /// The code of a keyword, in any case; a new one where it is not known yet. @return NoKeyword where all 65,535
    /// codes are used up: such an instance is read and kept like a complex one.
    KeywordCode intern(std::string_view spelling) {
        const Entry& entry = table_[position(spelling)];
        return entry.text != nullptr ? entry.code : add(spelling);
    }
    /// @return NoKeyword where this spelling was not seen yet, even if another one of the keyword was.
    KeywordCode find(std::string_view spelling) const {
        const Entry& entry = table_[position(spelling)];
        return entry.text != nullptr ? entry.code : NoKeyword;
    }
    /// Upper case. Valid as long as this object. Empty for NoKeyword.
    std::string_view text(KeywordCode code) const {
        return code < names_.size() ? std::string_view(names_[code]) : std::string_view();
    }
    std::size_t size() const { return names_.size(); }

private:
    /// One spelling; several may share a code.
    struct Entry {
        const char* text = nullptr;
        std::uint32_t length = 0;
        KeywordCode code = NoKeyword;
    };

    static std::uint64_t word(const char* at) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, at, sizeof bytes);
        return bytes;
    }

    static std::uint64_t hash(std::string_view text) {
        constexpr std::uint64_t Factor = 0x9E3779B97F4A7C15U;
        std::uint64_t sum = text.size() * Factor;
        const auto mix = [&sum](std::uint64_t bytes) {
            sum = (sum ^ bytes) * Factor;
            sum ^= sum >> 29U;
        };
        const std::size_t size = text.size();
        for (std::size_t at = 0; at + 8 < size; at += 8) mix(word(text.data() + at));
        if (size >= 8) {
            mix(word(text.data() + size - 8));
        } else {
            std::uint64_t bytes = 0;
            for (const char c : text) bytes = bytes << 8U | static_cast<unsigned char>(c);
            mix(bytes);
        }
        return sum;
    }

    static bool equal(const char* a, const char* b, std::size_t size) {
        if (size < 8) return std::memcmp(a, b, size) == 0;
        for (std::size_t at = 0; at + 8 < size; at += 8)
            if (word(a + at) != word(b + at)) return false;
        return word(a + size - 8) == word(b + size - 8);
    }

    /// Where the spelling is, or the free place for it.
    std::size_t position(std::string_view spelling) const {
        const std::size_t mask = table_.size() - 1;
        std::size_t at = hash(spelling) & mask;
        while (table_[at].text != nullptr &&
               (table_[at].length != spelling.size() || !equal(table_[at].text, spelling.data(), spelling.size())))
            at = (at + 1) & mask;
        return at;
    }

    KeywordCode add(std::string_view spelling);
    KeywordCode codeOf(const std::string& upperCase);
    void insert(const std::string& spelling, KeywordCode code);
    void grow();

    std::vector<Entry> table_;  ///< Open addressing; its size is a power of two, at most half is used.
    std::size_t used_ = 0;
    std::deque<std::string> names_;      ///< By code, upper case.
    std::deque<std::string> spellings_;  ///< Owns what the table points to.
};

}  // namespace model::step
