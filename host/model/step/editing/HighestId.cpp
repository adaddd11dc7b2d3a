#include "model/step/editing/HighestId.hpp"

// Compiled once for each set of vector instructions; which of them runs is chosen where the program does.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "model/step/editing/HighestId.cpp"
#include <hwy/foreach_target.h>

#include "model/step/reading/Block-inl.hpp"
#include "model/step/syntax/Characters.hpp"
#include "model/step/syntax/Tokens.hpp"

#include <algorithm>
#include <bit>

HWY_BEFORE_NAMESPACE();
namespace model::step::HWY_NAMESPACE {

namespace {

class HighestIdSearch {
public:
    explicit HighestIdSearch(std::string_view text) : bytes_(text) {}

    /// Every '#' with digits behind it.
    void everywhere(std::uint64_t begin, std::uint64_t end) {
        // No further than the end: looking for the next '#' behind each of many short sections would pass over the
        // rest of the file each time.
        const std::string_view part = bytes_.substr(0, end);
        while ((begin = part.find('#', begin)) != std::string_view::npos) {
            note(bytes_.data() + begin);
            ++begin;
        }
    }

    /// Those outside strings.
    void instance(std::uint64_t begin, std::uint64_t end) {
        std::uint64_t inString = 0;
        for (std::uint64_t at = begin; at < end; at += Block::Size) {
            const Block block = readBlock(bytes_.data() + at);
            const std::uint64_t inside = prefixParity(block.quotes) ^ inString;
            const std::uint64_t rest =
                end - at < Block::Size ? (std::uint64_t{1} << (end - at)) - 1 : ~std::uint64_t{0};
            // With a comment, which may hold a single apostrophe, the parity tells nothing.
            if ((block.slashes & ~inside & rest) != 0) return everywhere(begin, end);
            for (std::uint64_t hashes = block.hashes & ~inside & rest; hashes != 0; hashes &= hashes - 1)
                note(bytes_.data() + at + std::countr_zero(hashes));
            inString = (inside >> 63U) == 0 ? 0 : ~std::uint64_t{0};
        }
    }

    InstanceId result() const { return highest_; }

private:
    void note(const char* hash) {
        const char* at = hash + 1;
        InstanceId id = 0;
        for (; isDigit(*at); ++at) id = id * 10 + static_cast<InstanceId>(*at - '0');
        constexpr std::ptrdiff_t DigitsThatAlwaysFit = 19;
        if (at - hash - 1 > DigitsThatAlwaysFit) {
            Cursor cursor({hash, static_cast<std::size_t>(at - hash)});
            id = scanId(cursor);
        }
        highest_ = std::max(highest_, id);
    }

    std::string_view bytes_;
    InstanceId highest_ = 0;
};

InstanceId highestIdIn(const Index& index, const Changes& changes) {
    HighestIdSearch search(index.bytes);
    for (const Range& range : index.linkSections) search.everywhere(range.begin, range.end);
    Slot slot = 0;
    for (const Section& section : index.sections) {
        std::uint64_t done = section.begin;
        for (; slot < index.places.size() && changes.offset(slot) < section.end; ++slot) {
            const std::uint64_t begin = changes.offset(slot);
            search.everywhere(done, begin);
            done = begin + index.lengths[slot];
            search.instance(begin, done);
        }
        search.everywhere(done, section.end);
    }
    return search.result();
}

}  // namespace

}  // namespace model::step::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace model::step {

HWY_EXPORT(highestIdIn);

InstanceId highestId(const Index& index, const Changes& changes) {
    return HWY_DYNAMIC_DISPATCH(highestIdIn)(index, changes);
}

}  // namespace model::step
#endif
