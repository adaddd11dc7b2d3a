#include "fuzz/Checks.hpp"
#include "model/step/reading/Indexer.hpp"
#include "model/step/syntax/Tokens.hpp"

#include <hwy/targets.h>

#include <map>
#include <tuple>

namespace fuzz {

namespace {

using namespace model::step;

struct Found {
    bool read = false;
    std::vector<std::tuple<std::uint64_t, std::uint32_t, KeywordCode, std::string>> instances;
    std::vector<std::pair<std::uint64_t, std::string>> remarks;
    std::vector<std::tuple<std::uint64_t, std::uint64_t, std::uint64_t>> sections;

    bool operator==(const Found&) const = default;
};

/// @param padded  the bytes with the slack behind them.
Found indexed(const std::string& padded, const Sharing& sharing) {
    Index index(std::string_view(padded).substr(0, padded.size() - SlackBytes));
    Found found;
    found.read = bool{indexFile(index, {}, sharing)};
    for (Slot slot = 0; slot < index.places.size(); ++slot) {
        const Place place = index.places[slot];
        found.instances.emplace_back(place.where(), index.lengths[slot], place.keyword(),
                                     std::string(index.keywords.text(place.keyword())));
        require(place.where() + index.lengths[slot] <= index.bytes.size(), "an instance goes beyond the file");
    }
    for (const Remark& remark : index.remarks) found.remarks.emplace_back(remark.line, remark.message);
    for (const Section& section : index.sections)
        found.sections.emplace_back(section.begin, section.end, section.insertAt);
    return found;
}

/// What is an instance by its tokens, too, ends where the sweep said. The sweep looks at strings and parentheses alone:
/// what stands between them need not be well formed.
void requireByTokens(const std::string& padded, const Found& found) {
    for (const auto& [offset, length, code, keyword] : found.instances) {
        Cursor cursor(std::string_view(padded).substr(offset, padded.size() - SlackBytes - offset));
        InstanceHead head;
        const char* begin = cursor.at;
        if (!scanInstance(cursor, head, nullptr)) continue;
        require(cursor.at - begin == static_cast<std::ptrdiff_t>(length), "an instance ends somewhere else");
    }
}

}  // namespace

void checkSweep(std::string_view bytes) {
    const std::string padded = std::string(bytes) + std::string(SlackBytes, '\0');
    constexpr std::size_t Far = std::size_t{1} << 20U;
    const Found alone = indexed(padded, {Far, Far, 0});
    requireByTokens(padded, alone);
    require(indexed(padded, {64, 1, 1}) == alone, "with the help of another thread something else is read");
    for (std::int64_t left = hwy::SupportedTargets() & HWY_TARGETS; left != 0; left &= left - 1) {
        hwy::SetSupportedTargetsForTest(left & -left);
        const bool same = indexed(padded, {Far, Far, 0}) == alone;
        hwy::SetSupportedTargetsForTest(0);
        require(same, "with other vectors something else is read");
    }
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkSweep)
