#include "selection/Selection.hpp"

#include "selection/Chooser.hpp"

namespace selection {

model::Result<std::vector<model::Element>> choose(const model::Model& model, std::string_view selection) {
    const auto expression = parse(selection);
    if (!expression) return expression.error();
    return Chooser(model, *expression).run();
}

}  // namespace selection
