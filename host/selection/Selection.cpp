#include "selection/Selection.hpp"

#include "selection/Chooser.hpp"

namespace selection {

model::Result<std::vector<model::Element>> choose(const model::Model& model, std::string_view selection) {
    const auto expression = parse(selection);
    if (!expression) return expression.error();
    return Chooser(model, *expression).run();
}

std::vector<std::string> itemsNamed(std::string_view selection) {
    std::vector<std::string> names;
    const auto expression = parse(std::string(selection));
    if (!expression) return names;
    for (const Group& group : expression->groups) {
        for (const Facet& facet : group) {
            const bool named = facet.subject == Subject::Item || facet.subject == Subject::Property;
            if (named && !facet.name.pattern) names.push_back(facet.name.text);
        }
    }
    return names;
}

}  // namespace selection
