#include "services/Storeys.hpp"

#include "services/Report.hpp"

#include <algorithm>

namespace host {

namespace {

constexpr API_ElemTypeID StoreyType = 1003;
constexpr std::size_t MostFloors = 32767;

double heightOf(const model::Model& model, model::Element storey) {
    const std::optional<model::Point> origin = model.placement(storey);
    return origin ? origin->z : 0.0;
}

}  // namespace

void Storeys::readOrder(const model::Model& model) {
    order.emplace();
    for (model::Element element = 0; element < model.elementCount(); ++element) {
        if (model.info(element).typeId == StoreyType) order->push_back(element);
    }
    std::stable_sort(order->begin(), order->end(),
                     [&](model::Element a, model::Element b) { return heightOf(model, a) < heightOf(model, b); });
    if (order->size() > MostFloors) order->resize(MostFloors);
}

void Storeys::readNames(const model::Model& model) {
    floorByName.clear();
    Int16 floor = 0;
    for (const model::Element storey : *order) floorByName.emplace(utf8(model.name(storey)), floor++);
    namesRevision = model.revision();
}

Int16 Storeys::floorOf(const model::Model& model, model::Element element) {
    if (!order) readOrder(model);
    if (order->size() < 2) return 0;
    if (floorByName.empty() || namesRevision != model.revision()) readNames(model);
    const auto found = floorByName.find(model.storey(element));
    return found == floorByName.end() ? Int16{0} : found->second;
}

void Storeys::clear() {
    order.reset();
    floorByName.clear();
}

}  // namespace host
