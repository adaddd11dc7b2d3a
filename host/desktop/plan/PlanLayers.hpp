#pragma once

#include "model/base/PlanRecords.hpp"

#include <QString>
#include <array>
#include <optional>

namespace desktop {

/// What can be left out of a plan.
enum class PlanLayer : std::uint8_t { Rooms, Furniture, Grid, Openings, Terrain, Annotations };
/// In the order of the menu.
inline constexpr PlanLayer PlanLayerList[] = {PlanLayer::Rooms,    PlanLayer::Furniture, PlanLayer::Grid,
                                              PlanLayer::Openings, PlanLayer::Terrain,   PlanLayer::Annotations};

/// The layer that a kind of elements lies on; nothing for what is always drawn.
std::optional<PlanLayer> planLayer(model::PlanKind kind);
QString layerText(PlanLayer layer);

/// Which layers are drawn: openings, terrain and annotations only where the user has asked for them.
class PlanLayers {
public:
    /// As they were left the last time.
    static PlanLayers remembered();
    void remember() const;

    bool has(PlanLayer layer) const { return on_[static_cast<std::size_t>(layer)]; }
    void set(PlanLayer layer, bool on) { on_[static_cast<std::size_t>(layer)] = on; }
    bool shows(model::PlanKind kind) const {
        const auto layer = planLayer(kind);
        return !layer || has(*layer);
    }

private:
    std::array<bool, std::size(PlanLayerList)> on_{true, true, true, false, false, false};
};

}  // namespace desktop
