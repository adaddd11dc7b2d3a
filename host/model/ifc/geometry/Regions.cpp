#include "model/ifc/geometry/Regions.hpp"

#include "model/ifc/geometry/Crossings.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

namespace model::ifc {

namespace {

using ClipperLib::Clipper;
using ClipperLib::Paths;

/// Crossings cost time with the square of the edges that cross one another. Parts of this many shapes are put together
/// first, and what comes out of one must not be much more than what went in: in real shapes it is less.
constexpr std::size_t PartSize = 128;
constexpr std::size_t MostCorners = 9'000;
/// Of the edges of one such part, each of which costs a third of a microsecond. Of a real element's there are hundreds.
constexpr std::size_t MostCrossings = 1'000'000;

/// To whole numbers, in which areas are put together exactly: of such a step that the largest stays below 2^30, where
/// products fit 64 bits. Far from the origin nothing is lost, since counting begins at the shapes' corner.
class Grid {
public:
    explicit Grid(const std::vector<Region>& shapes) {
        double maxX = std::numeric_limits<double>::lowest(), maxY = maxX;
        minX_ = minY_ = std::numeric_limits<double>::max();
        for (const Region& shape : shapes) {
            for (const Ring& ring : shape) {
                for (const Point& point : ring) {
                    minX_ = std::min(minX_, point.x);
                    minY_ = std::min(minY_, point.y);
                    maxX = std::max(maxX, point.x);
                    maxY = std::max(maxY, point.y);
                }
            }
        }
        size_ = std::max(maxX - minX_, maxY - minY_);
        step_ = size_ / Steps;
    }

    bool usable() const { return std::isfinite(size_) && size_ > 0 && std::isfinite(1 / step_); }

    /// Of what is taken away, points many times the shapes' size away come nearer.
    ClipperLib::IntPoint toWhole(const Point& point) const {
        const auto place = [this](double at) {
            const double steps = std::round(at / step_);
            return static_cast<ClipperLib::cInt>(std::clamp(steps, -12 * Steps, 12 * Steps));
        };
        return {place(point.x - minX_), place(point.y - minY_)};
    }
    Point fromWhole(const ClipperLib::IntPoint& point) const {
        return {minX_ + static_cast<double>(point.X) * step_, minY_ + static_cast<double>(point.Y) * step_, 0};
    }

private:
    static constexpr double Steps = 67'108'864;  // 2^26: a hundred metres in steps of 1.5 micrometres.
    double minX_, minY_, size_ = 0, step_ = 0;
};

/// Whether it turns one way at all corners. A ring that crosses itself covers areas both ways round, of which one would
/// take from what else is there instead of adding to it.
bool isConvex(const ClipperLib::Path& ring) {
    bool left = false, right = false;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const auto &a = ring[i], &b = ring[(i + 1) % ring.size()], &c = ring[(i + 2) % ring.size()];
        const double turn = static_cast<double>(b.X - a.X) * static_cast<double>(c.Y - b.Y) -
                            static_cast<double>(b.Y - a.Y) * static_cast<double>(c.X - b.X);
        left = left || turn > 0;
        right = right || turn < 0;
    }
    return !left || !right;
}

/// Without corners that are none: those that are repeated, and those on a straight line.
void dropIdleCorners(ClipperLib::Path& ring) {
    ClipperLib::Path kept;
    const auto turns = [](const ClipperLib::IntPoint& a, const ClipperLib::IntPoint& b, const ClipperLib::IntPoint& c) {
        return (b.X - a.X) * (c.Y - b.Y) != (b.Y - a.Y) * (c.X - b.X);
    };
    for (const ClipperLib::IntPoint& corner : ring) {
        if (!kept.empty() && kept.back() == corner) continue;
        if (kept.size() > 1 && !turns(kept[kept.size() - 2], kept.back(), corner)) kept.pop_back();
        if (kept.empty() || kept.back() != corner) kept.push_back(corner);
    }
    ring = std::move(kept);
}

/// Whether nothing is to be seen of it: a wall's side that stands upright but for the rounding of its corners.
bool isSliver(const Paths& rings) {
    constexpr double Width = 4;
    const ClipperLib::IntPoint from = rings.front().front();
    const auto away = [&](const ClipperLib::IntPoint& corner) {
        return std::pair(static_cast<double>(corner.X - from.X), static_cast<double>(corner.Y - from.Y));
    };
    double farX = 0, farY = 0;
    for (const ClipperLib::Path& ring : rings) {
        for (const ClipperLib::IntPoint& corner : ring) {
            const auto [x, y] = away(corner);
            if (std::hypot(x, y) > std::hypot(farX, farY)) std::tie(farX, farY) = std::pair(x, y);
        }
    }
    const double length = std::hypot(farX, farY);
    return std::all_of(rings.begin(), rings.end(), [&](const ClipperLib::Path& ring) {
        return std::all_of(ring.begin(), ring.end(), [&](const ClipperLib::IntPoint& corner) {
            const auto [x, y] = away(corner);
            return std::abs(x * farY - y * farX) <= Width * length;
        });
    });
}

std::size_t corners(const Paths& paths) {
    std::size_t count = 0;
    for (const ClipperLib::Path& path : paths) count += path.size();
    return count;
}

/// One shape's outline; none of one without an area, such as a wall's side seen from above. Nothing where it has too
/// many corners, those counted that its edges make where they cross.
std::optional<Paths> outlineOf(const Region& shape, const Grid& grid) {
    Paths rings;
    double area = 0;
    for (const Ring& ring : shape) {
        ClipperLib::Path path;
        path.reserve(ring.size());
        for (const Point& point : ring) path.push_back(grid.toWhole(point));
        area += std::abs(ClipperLib::Area(path));
        rings.push_back(std::move(path));
    }
    if (area == 0) return Paths();
    if (rings.size() == 1 && rings[0].size() <= 4 && isConvex(rings[0])) {
        if (!ClipperLib::Orientation(rings[0])) ClipperLib::ReversePath(rings[0]);
        return rings;
    }
    Paths reduced = rings;
    std::erase_if(reduced, [](const ClipperLib::Path& ring) { return ring.empty(); });
    for (ClipperLib::Path& ring : reduced) dropIdleCorners(ring);
    const std::size_t count = corners(reduced);
    // Two of the four fields around a crossing are inside, each with a corner there.
    if (count > MostCorners || crossMoreThan(reduced, (MostCorners - count) / 2)) {
        return isSliver(reduced) ? std::optional(Paths()) : std::nullopt;
    }
    Paths outline;
    ClipperLib::SimplifyPolygons(rings, outline, ClipperLib::pftEvenOdd);
    return outline;
}

/// @return nothing where the parts cross one another too often, or what comes out is far more than what went in.
std::optional<Paths> united(const Paths& parts) {
    if (crossMoreThan(parts, MostCrossings)) return std::nullopt;
    Paths result;
    Clipper clipper;
    clipper.AddPaths(parts, ClipperLib::ptSubject, true);
    clipper.Execute(ClipperLib::ctUnion, result, ClipperLib::pftNonZero, ClipperLib::pftNonZero);
    constexpr std::size_t Few = 1000;
    if (corners(result) > 4 * corners(parts) + Few) return std::nullopt;
    return result;
}

std::optional<Paths> unitedAll(const std::vector<Region>& shapes, const Grid& grid) {
    std::vector<Paths> level;
    std::size_t count = 0;
    for (const Region& shape : shapes) {
        auto outline = outlineOf(shape, grid);
        if (!outline) return std::nullopt;
        count += corners(*outline);
        if (count > MostCorners) return std::nullopt;
        if (!outline->empty()) level.push_back(std::move(*outline));
    }
    while (level.size() > 1) {
        std::vector<Paths> next;
        for (std::size_t i = 0; i < level.size(); i += PartSize) {
            Paths parts;
            for (std::size_t j = i; j < std::min(level.size(), i + PartSize); ++j) {
                parts.insert(parts.end(), level[j].begin(), level[j].end());
            }
            auto part = united(parts);
            if (!part) return std::nullopt;
            next.push_back(std::move(*part));
        }
        level = std::move(next);
    }
    return level.empty() ? Paths() : std::move(level.front());
}

}  // namespace

struct PlanArea::Whole {
    Grid grid;
    Paths paths;
};

std::optional<PlanArea> PlanArea::of(const std::vector<Region>& shapes) {
    const Grid grid(shapes);
    auto paths = grid.usable() ? unitedAll(shapes, grid) : Paths();
    if (!paths) return std::nullopt;
    return PlanArea(std::make_shared<const Whole>(Whole{grid, std::move(*paths)}));
}

std::size_t PlanArea::corners() const {
    return ifc::corners(whole_->paths);
}

std::optional<std::vector<Ring>> PlanArea::without(const std::vector<Region>& removed) const {
    Paths left = whole_->paths;
    if (!removed.empty() && whole_->grid.usable()) {
        const auto away = unitedAll(removed, whole_->grid);
        if (!away) return std::nullopt;
        Paths both = left;
        both.insert(both.end(), away->begin(), away->end());
        if (crossMoreThan(both, MostCrossings)) return std::nullopt;
        Clipper clipper;
        clipper.AddPaths(left, ClipperLib::ptSubject, true);
        clipper.AddPaths(*away, ClipperLib::ptClip, true);
        clipper.Execute(ClipperLib::ctDifference, left, ClipperLib::pftNonZero, ClipperLib::pftNonZero);
    }
    // What is left between faces that were rounded differently is no hole.
    ClipperLib::CleanPolygons(left);
    std::vector<Ring> rings;
    for (const ClipperLib::Path& path : left) {
        if (path.size() < 3) continue;
        Ring& ring = rings.emplace_back();
        for (const ClipperLib::IntPoint& point : path) ring.push_back(whole_->grid.fromWhole(point));
    }
    return rings;
}

}  // namespace model::ifc
