#pragma once
// The keywords of a file, numbered in order of first appearance. Looked up once for each instance, so that finding one
// seen before costs a hash and a comparison of the bytes as they stand, whatever their case.

#include "model/step/index/Slot.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace model::step {

class Keywords {
public:
    Keywords();

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

    /// All bytes of 8 to 32, some of them twice: without a loop, whose end would be guessed wrong at every other
    /// instance.
    struct Words {
        Words(const char* text, std::size_t size)
            : first(word(text)),
              second(word(text + std::min<std::size_t>(8, size - 8))),
              lastButOne(word(text + (size > 16 ? size - 16 : 0))),
              last(word(text + size - 8)) {}
        bool operator==(const Words&) const = default;
        std::uint64_t first, second, lastButOne, last;
    };

    static std::uint64_t mixed(std::uint64_t a, std::uint64_t b) {
        __extension__ using Wide = unsigned __int128;
        const Wide product = static_cast<Wide>(a) * b;
        return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64U);
    }

    /// Keyed: with a fixed function somebody could make a file whose keywords all meet in one place of the table, and
    /// each of its instances would walk past all of them.
    std::uint64_t hash(std::string_view text) const {
        constexpr std::uint64_t Factor = 0x9E3779B97F4A7C15U;
        std::uint64_t sum = key_ ^ text.size() * Factor;
        const std::size_t size = text.size();
        if (size >= 8 && size <= 32) {
            const Words words(text.data(), size);
            return mixed(words.first ^ sum, words.last ^ key_) + mixed(words.second ^ key_, words.lastButOne ^ sum);
        }
        for (std::size_t at = 0; at + 8 < size; at += 8) sum = mixed(sum ^ word(text.data() + at), Factor ^ key_);
        if (size >= 8) return mixed(sum ^ word(text.data() + size - 8), Factor ^ key_);
        std::uint64_t bytes = 0;
        for (const char c : text) bytes = bytes << 8U | static_cast<unsigned char>(c);
        return mixed(sum ^ bytes, Factor ^ key_);
    }

    static bool equal(const char* a, const char* b, std::size_t size) {
        if (size < 8) return std::memcmp(a, b, size) == 0;
        if (size <= 32) return Words(a, size) == Words(b, size);
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
    std::uint64_t key_;                  ///< Of the hash; another one in each table.
    std::deque<std::string> names_;      ///< By code, upper case.
    std::deque<std::string> spellings_;  ///< Owns what the table points to.
};

}  // namespace model::step
