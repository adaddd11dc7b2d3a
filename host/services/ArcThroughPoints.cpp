#include "services/ArcThroughPoints.hpp"

#include <cmath>

namespace host {

std::optional<Arc> arcThrough(const API_Coord3D& start, const API_Coord3D& bulge, const API_Coord3D& end) {
    // Seen from the start, so that a model far from its origin loses no digits.
    const double bulgeX = bulge.x - start.x, bulgeY = bulge.y - start.y;
    const double endX = end.x - start.x, endY = end.y - start.y;
    const double cross = bulgeX * endY - bulgeY * endX;  // Twice the triangle's area; its sign is the arc's sense.
    const double longest = std::hypot(bulgeX, bulgeY) * std::hypot(endX, endY);
    constexpr double LeastSine = 1e-9;
    if (!std::isfinite(cross) || std::fabs(cross) <= LeastSine * longest) return std::nullopt;
    if (bulge.x == end.x && bulge.y == end.y) return std::nullopt;
    const double bulgeSquare = bulgeX * bulgeX + bulgeY * bulgeY;
    const double endSquare = endX * endX + endY * endY;
    const double centreX = (endY * bulgeSquare - bulgeY * endSquare) / (2.0 * cross);
    const double centreY = (bulgeX * endSquare - endX * bulgeSquare) / (2.0 * cross);
    return Arc{{start.x + centreX, start.y + centreY, start.z}, cross < 0.0};
}

}  // namespace host
