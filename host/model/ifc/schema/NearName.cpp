#include "model/ifc/schema/NearName.hpp"

#include "text/Ascii.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace model::ifc {

namespace {

constexpr std::size_t LongestName = 80;  // No standard name is longer.

bool isFiller(char c) {
    return c == ' ' || c == '_' || c == '-';
}

std::string plainForm(std::string_view name) {
    std::string plain;
    for (const char c : name) {
        if (!isFiller(c)) plain += text::lowerCase(c);
    }
    return plain;
}

std::size_t allowedFor(std::size_t length) {
    if (length < 4) return 0;
    return length < 8 ? 1 : 2;
}

using Line = std::array<std::size_t, LongestName + 1>;

}  // namespace

std::size_t editDistance(std::string_view a, std::string_view b, std::size_t bound) {
    if (a.size() > b.size()) std::swap(a, b);
    const std::size_t tooFar = bound + 1;
    if (b.size() - a.size() > bound || b.size() > LongestName) return tooFar;
    // Three lines of the table of distances between beginnings: a change of neighbours looks two lines back.
    Line twoBefore{}, before{}, line{};
    for (std::size_t j = 0; j <= b.size(); ++j) before[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        line[0] = i;
        std::size_t least = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = before[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            line[j] = std::min({replaced, before[j] + 1, line[j - 1] + 1});
            const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (swapped) line[j] = std::min(line[j], twoBefore[j - 2] + 1);
            least = std::min(least, line[j]);
        }
        if (least > bound) return tooFar;
        twoBefore = before;
        before = line;
    }
    return std::min(before[b.size()], tooFar);
}

NearestName::NearestName(std::string_view name)
    : name_(name), plain_(plainForm(name)), bound_(allowedFor(plain_.size())), distance_(bound_ + 1) {}

void NearestName::offer(std::string_view candidate) {
    if (candidate == name_) exact_ = true;
    if (exact_ || candidate == best_) return;
    const std::size_t distance = editDistance(plain_, plainForm(candidate), std::min(bound_, distance_));
    if (distance > bound_ || distance > distance_) return;
    several_ = distance == distance_;
    distance_ = distance;
    best_ = candidate;
}

}  // namespace model::ifc
