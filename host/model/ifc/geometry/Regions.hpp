#pragma once

#include "model/base/Records.hpp"

#include <memory>
#include <optional>
#include <vector>

namespace model::ifc {

using Ring = std::vector<Point>;  ///< Closed from the last point to the first, which is not repeated.

/// A plane area in space: what is inside an odd number of rings.
using Region = std::vector<Ring>;

/// Areas in plan, counted where they lie one upon the other: put together once, whatever is taken away from them later.
class PlanArea {
public:
    /// @param shapes  Seen from above; which way round their rings go does not matter.
    /// @return nothing where the shapes are too intricate to be put together in a bounded time.
    static std::optional<PlanArea> of(const std::vector<Region>& shapes);

    /// @return the outline of what is left without these: outer rings counter-clockwise, holes clockwise, z = 0, none
    ///         where nothing is left. Nothing where it is too intricate.
    std::optional<std::vector<Ring>> without(const std::vector<Region>& removed) const;
    std::size_t corners() const;

private:
    struct Whole;
    explicit PlanArea(std::shared_ptr<const Whole> whole) : whole_(std::move(whole)) {}
    std::shared_ptr<const Whole> whole_;
};

}  // namespace model::ifc
