#include "fuzz/Checks.hpp"
#include "selection/Selection.hpp"

#include <algorithm>

namespace fuzz {

void checkSelection(std::string_view bytes) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    const std::string_view wanted = bytes.substr(0, end);
    const auto model = model::Model::fromBytes(std::string(bytes.substr(std::min(end + 1, bytes.size()))));
    if (!model) return;
    const auto chosen = selection::choose(**model, wanted);
    (void)selection::itemsNamed(wanted);
    if (!chosen) {
        require(!chosen.error().message.empty(), "a refusal gives no reason");
        return;
    }
    require(std::is_sorted(chosen->begin(), chosen->end()) &&
                std::adjacent_find(chosen->begin(), chosen->end()) == chosen->end(),
            "the chosen elements are not in the model's order");
    require(chosen->empty() || chosen->back() < (*model)->elementCount(), "an element is chosen that is not there");
    const auto twice = selection::choose(**model, std::string(wanted) + " + " + std::string(wanted));
    if (twice) require(*twice == *chosen, "a selection added to itself chooses others");
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkSelection)
