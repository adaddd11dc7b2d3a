#include "services/PlanIndex.hpp"

#include <cmath>

namespace host {

std::optional<model::Element> PlanIndex::nearest(const model::Model& model, API_ElemTypeID typeId, double x, double y,
                                                 double distance) {
    if (!places_) {
        places_.emplace();
        for (model::Element element = 0; element < model.elementCount(); ++element) {
            const std::optional<model::Point> origin = model.placement(element);
            if (origin) places_->push_back({element, model.typeId(element), origin->x, origin->y});
        }
    }
    std::optional<model::Element> best;
    for (const Place& place : *places_) {
        if (typeId != 0 && place.typeId != typeId) continue;
        const double reach = std::hypot(place.x - x, place.y - y);
        if (reach > distance || (best && reach == distance)) continue;
        best = place.element;
        distance = reach;
    }
    return best;
}

}  // namespace host
