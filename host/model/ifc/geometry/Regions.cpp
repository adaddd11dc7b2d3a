#include "model/ifc/geometry/Regions.hpp"

#include <clipper.hpp>

#include <algorithm>
#include <cmath>
#include <limits>

namespace model::ifc {

namespace {

using ClipperLib::Clipper;
using ClipperLib::Paths;

/// Crossings cost time with the square of the edges that cross one another. Parts of this many shapes are put together
/// first, and what comes out of one must not be much more than what went in: in real shapes it is less.
constexpr std::size_t PartSize = 128;
constexpr std::size_t MostCorners = 9'000;

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

/// One shape's outline; nothing of one without an area, such as a wall's side seen from above.
Paths outlineOf(const Region& shape, const Grid& grid) {
    Paths rings;
    double area = 0;
    for (const Ring& ring : shape) {
        ClipperLib::Path path;
        path.reserve(ring.size());
        for (const Point& point : ring) path.push_back(grid.toWhole(point));
        area += std::abs(ClipperLib::Area(path));
        rings.push_back(std::move(path));
    }
    if (area == 0) return {};
    if (rings.size() == 1 && rings[0].size() <= 4 && isConvex(rings[0])) {
        if (!ClipperLib::Orientation(rings[0])) ClipperLib::ReversePath(rings[0]);
        return rings;
    }
    Paths outline;
    ClipperLib::SimplifyPolygons(rings, outline, ClipperLib::pftEvenOdd);
    return outline;
}

std::size_t corners(const Paths& paths) {
    std::size_t count = 0;
    for (const ClipperLib::Path& path : paths) count += path.size();
    return count;
}

/// @return nothing where what comes out is far more than what went in.
std::optional<Paths> united(const Paths& parts) {
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
        Paths outline = outlineOf(shape, grid);
        count += corners(outline);
        if (count > MostCorners) return std::nullopt;
        if (!outline.empty()) level.push_back(std::move(outline));
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

std::optional<std::vector<Ring>> planUnion(const std::vector<Region>& shapes, const std::vector<Region>& removed) {
    const Grid grid(shapes);
    if (!grid.usable()) return std::vector<Ring>();
    auto all = unitedAll(shapes, grid);
    if (!all) return std::nullopt;
    if (!removed.empty()) {
        const auto away = unitedAll(removed, grid);
        if (!away) return std::nullopt;
        Clipper clipper;
        clipper.AddPaths(*all, ClipperLib::ptSubject, true);
        clipper.AddPaths(*away, ClipperLib::ptClip, true);
        clipper.Execute(ClipperLib::ctDifference, *all, ClipperLib::pftNonZero, ClipperLib::pftNonZero);
    }
    // What is left between faces that were rounded differently is no hole.
    ClipperLib::CleanPolygons(*all);
    std::vector<Ring> rings;
    for (const ClipperLib::Path& path : *all) {
        if (path.size() < 3) continue;
        Ring& ring = rings.emplace_back();
        for (const ClipperLib::IntPoint& point : path) ring.push_back(grid.fromWhole(point));
    }
    return rings;
}

}  // namespace model::ifc
