#include "model/ifc/geometry/GeometryReader.hpp"

namespace model::ifc {

bool GeometryReader::spend(std::size_t cost) {
    spent_ = spent_ || cost > left_;
    if (!spent_) left_ -= cost;
    return !spent_;
}

std::string_view GeometryReader::text(step::Slot slot) {
    const std::string_view text = work_.file.text(slot);
    return spend(InstanceCost + text.size()) ? text : std::string_view();
}

bool GeometryReader::read(step::Slot slot, step::Instance& out) {
    return step::splitInstance(text(slot), out);
}

bool GeometryReader::makeCorners(std::size_t count) {
    return count <= Budget / CornerCost ? spend(count * CornerCost) : spend(Budget + 1);
}

}  // namespace model::ifc
