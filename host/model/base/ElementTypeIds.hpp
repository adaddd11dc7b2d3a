#pragma once

#include <cstdint>

namespace model {

/// The host's numbers for kinds of elements, as they stand in an element's header. Those up to ChangeMarker are fixed
/// by the host interface, add-ons know them; those from Site on are this host's own, for what it can name beyond them.
struct ElementTypeIds {
    enum Id : std::int32_t {
        NoType = 0,
        Wall = 1,
        Column,
        Beam,
        Window,
        Door,
        Object,
        Lamp,
        Slab,
        Roof,
        Mesh,
        Dimension,
        RadialDimension,
        LevelDimension,
        AngleDimension,
        Text,
        Label,
        Zone,
        Hatch,
        Line,
        Polyline,
        Arc,
        Circle,
        Spline,
        Hotspot,
        CutPlane,
        Camera,
        CameraSet,
        Group,
        SectionElement,
        Drawing,
        Picture,
        DetailDrawing,
        Elevation,
        InteriorElevation,
        Worksheet,
        Hotlink,
        CurtainWall,
        CurtainWallSegment,
        CurtainWallFrame,
        CurtainWallPanel,
        CurtainWallJunction,
        CurtainWallAccessory,
        Shell,
        Skylight,
        Morph,
        ChangeMarker,

        Site = 1001,
        Building = 1002,
        Storey = 1003,
        Product = 1005,
        Opening = 1006,
    };
};
static_assert(ElementTypeIds::ChangeMarker == 46);

}  // namespace model
