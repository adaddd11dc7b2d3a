#include "console/export/LeftOut.hpp"

#include "console/output/Text.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace console {
namespace {

constexpr std::size_t ExamplesKept = 3;

}  // namespace

void LeftOut::add(Obstacle obstacle, const std::string& item, const std::string& guid) {
    Group& group = byReason_.try_emplace({obstacle, item}, Group{obstacle, item, 0, {}}).first->second;
    ++group.count;
    if (group.examples.size() < ExamplesKept) group.examples.push_back(guid);
}

std::vector<LeftOut::Group> LeftOut::groups() const {
    std::vector<Group> result;
    for (const auto& entry : byReason_) result.push_back(entry.second);
    return result;
}

std::string LeftOut::text(const Group& group) {
    std::string text = fmt::format("{} of {} left out: {} ({}", counted(group.count, "value"), group.item,
                                   explain(group.obstacle), fmt::join(group.examples, ", "));
    if (group.count > group.examples.size()) text += fmt::format(" and {} more", group.count - group.examples.size());
    return text + ")";
}

}  // namespace console
