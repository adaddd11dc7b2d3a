#include "model/ifc/geometry/Turn.hpp"

#include <algorithm>
#include <cmath>

namespace model::ifc {

Frame Turn::turnedBack(const Frame& frame) const {
    return {turnedBack(frame.x), turnedBack(frame.y), turnedBack(frame.z), turnedBack(frame.origin)};
}

Turn turnOf(const Frame& frame) {
    const Point& along = frame.x.x == 0 && frame.x.y == 0 ? frame.y : frame.x;
    const double length = std::hypot(along.x, along.y);
    if (along.x == 0 || along.y == 0 || !std::isfinite(length)) return {};
    return {along.x / length, along.y / length};
}

Frame rounded(const Frame& axes) {
    constexpr int Bits = 40;  // A millionth of a millionth, far above the rounding and far below what is to be seen.
    double largest = 0;
    for (const Point& axis : {axes.x, axes.y, axes.z}) {
        for (const double part : {axis.x, axis.y, axis.z}) largest = std::max(largest, std::abs(part));
    }
    if (!(largest > 0) || !std::isfinite(largest)) return axes;
    const int exponent = std::ilogb(largest) - Bits;
    const auto near = [&](double part) { return std::ldexp(std::round(std::ldexp(part, -exponent)), exponent) + 0.0; };
    const auto all = [&](const Point& axis) { return Point{near(axis.x), near(axis.y), near(axis.z)}; };
    return {all(axes.x), all(axes.y), all(axes.z), axes.origin};
}

}  // namespace model::ifc
