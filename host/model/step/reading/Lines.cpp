#include "model/step/reading/Lines.hpp"

#include <algorithm>

namespace model::step {

namespace {

std::uint64_t lineEnds(std::string_view bytes, std::uint64_t from, std::uint64_t to) {
    std::uint64_t count = 0;
    for (std::uint64_t i = from; i < to; ++i) {
        const bool pair = i + 1 < bytes.size() && bytes[i] == '\r' && bytes[i + 1] == '\n';
        count += (bytes[i] == '\n' || bytes[i] == '\r') && !pair ? 1U : 0U;
    }
    return count;
}

}  // namespace

void numberLines(std::string_view bytes, std::vector<Remark>& remarks) {
    std::stable_sort(remarks.begin(), remarks.end(),
                     [](const Remark& a, const Remark& b) { return a.offset < b.offset; });
    std::uint64_t line = 1;
    std::uint64_t counted = 0;
    for (Remark& remark : remarks) {
        line += lineEnds(bytes, counted, remark.offset);
        counted = remark.offset;
        remark.line = line;
    }
}

}  // namespace model::step
