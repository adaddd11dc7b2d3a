#include "console/help/Nearest.hpp"

#include "model/ifc/schema/NearName.hpp"
#include "text/Ascii.hpp"
#include "updatefile/Designation.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

namespace console {
namespace {

/// A third of the letters may be wrong, three at most: beyond that it is another word.
std::size_t allowed(std::size_t length) {
    return std::clamp<std::size_t>(length / 3, 1, 3);
}

std::string_view comparable(std::string_view word, std::string_view candidate) {
    return word.find('[') == std::string_view::npos ? updatefile::nameIn(candidate) : candidate;
}

std::string onlyOneThatBeginsWith(const std::string& word, std::span<const std::string> candidates) {
    std::string found;
    for (const std::string& candidate : candidates) {
        if (!text::toLowerCase(candidate).starts_with(word) || candidate == found) continue;
        if (!found.empty()) return {};
        found = candidate;
    }
    return found;
}

}  // namespace

std::string nearest(std::string_view word, std::span<const std::string> candidates) {
    const std::string wanted = text::toLowerCase(word);
    std::string found;
    std::size_t least = allowed(wanted.size()) + 1;
    for (const std::string& candidate : candidates) {
        const std::string name = text::toLowerCase(comparable(word, candidate));
        const std::size_t distance = model::ifc::editDistance(wanted, name, least - 1);
        // Of a name of two letters nothing would be left.
        if (distance >= least || distance >= name.size()) continue;
        least = distance;
        found = candidate;
        if (least == 0) break;
    }
    return found.empty() && wanted.size() > 1 ? onlyOneThatBeginsWith(wanted, candidates) : found;
}

std::string didYouMean(std::string_view word, std::span<const std::string> candidates) {
    const std::string meant = nearest(word, candidates);
    return meant.empty() ? "" : fmt::format("; did you mean {}?", meant);
}

}  // namespace console
