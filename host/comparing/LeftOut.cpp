#include "comparing/LeftOut.hpp"

#include <map>
#include <tuple>
#include <utility>

namespace comparing {

std::vector<LeftOut> leftOut(const Comparison& comparison) {
    // The same obstacle may hold for each of many thousands of elements.
    constexpr std::size_t ExamplesKept = 3;
    std::map<std::pair<std::string, std::string>, LeftOut> groups;
    for (const ChangedElement& element : comparison.changed) {
        for (const Change& change : element.changes) {
            if (change.writable()) continue;
            LeftOut& group = groups[{change.item, change.obstacle}];
            ++group.count;
            if (group.examples.size() < ExamplesKept) group.examples.push_back(element.a);
        }
    }
    std::vector<LeftOut> result;
    for (auto& [key, group] : groups) {
        std::tie(group.item, group.why) = key;
        result.push_back(std::move(group));
    }
    return result;
}

}  // namespace comparing
