#include "text/ArchiveNames.hpp"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace text {

namespace {

constexpr std::size_t HeaderLength = 46;  ///< Of an entry of the directory, up to its name.
constexpr std::size_t LongestName = 0xFFFF;
constexpr std::size_t PlaceCount = 0x10000;  ///< Of the table by which crowds are told.
/// Below this even names that all meet in one place cost less than a second.
constexpr std::size_t FewEntries = 16384;

std::size_t number16(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]) | static_cast<std::size_t>(static_cast<unsigned char>(bytes[at + 1]))
                                                       << 8U;
}

std::uint32_t next(std::uint32_t hash, char byte) {
    return hash * 33 + static_cast<unsigned char>(byte);
}

/// The hash of any stretch of a text in the same short time, however long it is: what looks like an entry may overlap
/// the next one, and names may be 64 KiB long.
class StretchHashes {
public:
    explicit StretchHashes(std::string_view text) : text_(text), powers_(LongestName + 1, 1) {
        for (std::size_t i = 1; i < powers_.size(); ++i) powers_[i] = powers_[i - 1] * 33;
        std::uint32_t hash = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (i % Step == 0) upTo_.push_back(hash);
            hash = next(hash, text[i]);
        }
        upTo_.push_back(hash);
    }

    std::uint32_t of(std::size_t begin, std::size_t length) const {
        constexpr std::uint32_t First = 5381;
        return First * powers_[length] + upTo(begin + length) - upTo(begin) * powers_[length];
    }

private:
    static constexpr std::size_t Step = 64;

    std::uint32_t upTo(std::size_t at) const {
        std::uint32_t hash = upTo_[at / Step];
        for (std::size_t i = at - at % Step; i < at; ++i) hash = next(hash, text_[i]);
        return hash;
    }

    std::string_view text_;
    std::vector<std::uint32_t> powers_;  ///< Of 33.
    std::vector<std::uint32_t> upTo_;    ///< Of the text up to each multiple of Step.
};

/// Where entries of a directory seem to begin. Bytes of a packed file may look like one by chance; that does no harm.
std::vector<std::size_t> findEntries(std::string_view archive) {
    std::vector<std::size_t> found;
    for (std::size_t at = archive.find("PK\x01\x02"); at != std::string_view::npos;
         at = archive.find("PK\x01\x02", at + 4)) {
        if (archive.size() - at >= HeaderLength) found.push_back(at);
    }
    return found;
}

}  // namespace

bool hasCrowdedNames(std::string_view archive) {
    const std::vector<std::size_t> entries = findEntries(archive);
    if (entries.size() <= FewEntries) return false;
    const StretchHashes hashes(archive);
    std::vector<std::uint32_t> crowds(PlaceCount);
    for (const std::size_t entry : entries) {
        const std::size_t begin = entry + HeaderLength;
        const std::size_t length = std::min(number16(archive, entry + 28), archive.size() - begin);
        ++crowds[hashes.of(begin, length) % PlaceCount];
    }
    return *std::max_element(crowds.begin(), crowds.end()) > 200 + entries.size() / 1024;
}

}  // namespace text
