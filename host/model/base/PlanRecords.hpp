#pragma once
// What a plan shows, as plain records. Coordinates are those of the file, in its length unit.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace model {

struct Point {
    double x = 0, y = 0, z = 0;
};

/// What a plan takes an element for, in the order in which they are drawn one over the other.
enum class PlanKind : std::uint8_t {
    Terrain,    ///< Sites and what is on them; buildings and storeys, where they have a shape of their own.
    Floor,      ///< Slabs, coverings, roofs, foundations: what is looked down on.
    Room,       ///< Spaces and zones.
    Furniture,  ///< And equipment: lamps, sanitary fittings, machines.
    Object,     ///< What is none of the others.
    Stair,      ///< And ramps.
    Structure,  ///< Walls, columns, the parts of curtain walls: dark where a plan cuts them.
    Window,
    Door,
    Opening,     ///< What is taken away from others. Has the outline of its window or door.
    Annotation,  ///< Dimensions, notes, and aids that nobody builds.
    Grid,
};
inline constexpr std::size_t PlanKindCount = 12;

/// What an element covers, seen from above, and how it is drawn.
struct PlanOutline {
    /// Outer rings counter-clockwise, holes clockwise, each closed from its last point to its first. A hull of less
    /// than three points covers nothing.
    std::vector<std::vector<Point>> rings;
    bool hull = false;  ///< Only the convex hull is known.
    /// What is drawn over the rings: the steps of a stair, the glass of a window, leaf and swing of a door. Of grids
    /// and annotations, which cover nothing, all there is.
    std::vector<std::vector<Point>> lines;
    std::optional<double> bottom, top;  ///< Along z. Not known of a hull.
};

/// What a room is labelled with.
struct RoomFacts {
    std::u16string number, name;  ///< Attributes "Name" and "LongName".
    std::optional<double> area;   ///< In square metres, as the file's quantities say; nothing where they do not.
};

struct GridAxis {
    std::u16string tag;
    std::vector<Point> line;
};

}  // namespace model
