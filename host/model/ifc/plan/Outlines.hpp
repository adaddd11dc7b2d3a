#pragma once

#include "model/ifc/geometry/ElementGeometry.hpp"
#include "model/ifc/geometry/PlanShape.hpp"
#include "model/ifc/geometry/Spatial.hpp"
#include "model/ifc/geometry/Turn.hpp"
#include "model/ifc/plan/Lines.hpp"
#include "model/ifc/plan/PlanKinds.hpp"

#include <array>
#include <map>

namespace model::ifc {

/// The outlines of elements in plan. Many elements may show one geometry at different places: what it covers is put
/// together once for each way that it lies, of which turns about the vertical are few, and kept until the file changes.
class Outlines {
public:
    explicit Outlines(Workspace& work) : work_(work) {}

    /// See Model::outline.
    PlanOutline of(step::Slot element);
    PlanKind kindOf(const Entity& entity) { return kinds_.of(entity); }

    /// So many turns of one geometry to no axis of the model are put together for themselves, as exactly as can be. All
    /// others are turned from one that lies along the axes.
    static constexpr std::size_t MostAslant = 16;
    /// So many corners are kept, however many elements are asked for: some megabytes.
    static constexpr std::size_t MostKept = 200'000;
    std::size_t kept() const { return kept_; }

private:
    /// What a geometry covers around its own origin.
    struct Covered {
        std::optional<PlanArea> area;
        double bottom = 0, top = 0;
        std::optional<std::vector<Point>> hull;  ///< Once it has been asked for.
        std::optional<PlanLines> steps;          ///< The same.
    };

    void forgetWhereDue();
    Turn turnFor(const ElementGeometry& geometry);
    Covered& covered(const ElementGeometry& geometry);
    const std::vector<Point>& hull(const ElementGeometry& geometry, Covered& covered);
    const PlanLines& steps(const ElementGeometry& geometry, Covered& covered);
    PlanOutline areasOf(step::Slot element, PlanKind kind);
    std::vector<Region> openingsAt(step::Slot element, const Point& origin, const Turn& turn, double height);

    /// The geometry's source and axes.
    using Key = std::pair<step::Slot, std::array<double, 9>>;
    static Key keyOf(const ElementGeometry& geometry);

    Workspace& work_;
    Openings openings_{work_};
    PlanKinds kinds_;
    std::uint64_t revision_ = 0;
    std::map<Key, Covered> covered_;
    std::map<step::Slot, std::size_t> aslant_;  ///< How often a source was turned to no axis of the model.
    std::size_t kept_ = 0;                      ///< Corners in all of it; each entry counts as some.
};

}  // namespace model::ifc
