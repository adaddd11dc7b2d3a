#include "desktop/plan/PlanLayers.hpp"

#include <QCoreApplication>
#include <QSettings>

namespace desktop {

namespace {

/// The names under which the settings keep them.
constexpr std::array<const char*, std::size(PlanLayerList)> Keys = {
    "plan/rooms", "plan/furniture", "plan/grid", "plan/openings", "plan/terrain", "plan/annotations"};

QString keyOf(PlanLayer layer) {
    return QString::fromLatin1(Keys[static_cast<std::size_t>(layer)]);
}

}  // namespace

std::optional<PlanLayer> planLayer(model::PlanKind kind) {
    switch (kind) {
        case model::PlanKind::Terrain:
            return PlanLayer::Terrain;
        case model::PlanKind::Room:
            return PlanLayer::Rooms;
        case model::PlanKind::Furniture:
            return PlanLayer::Furniture;
        case model::PlanKind::Opening:
            return PlanLayer::Openings;
        case model::PlanKind::Annotation:
            return PlanLayer::Annotations;
        case model::PlanKind::Grid:
            return PlanLayer::Grid;
        default:
            return std::nullopt;
    }
}

QString layerText(PlanLayer layer) {
    switch (layer) {
        case PlanLayer::Rooms:
            return QCoreApplication::translate("desktop::PlanPanel", "&Rooms");
        case PlanLayer::Furniture:
            return QCoreApplication::translate("desktop::PlanPanel", "&Furniture and Equipment");
        case PlanLayer::Grid:
            return QCoreApplication::translate("desktop::PlanPanel", "&Grid");
        case PlanLayer::Openings:
            return QCoreApplication::translate("desktop::PlanPanel", "&Openings");
        case PlanLayer::Terrain:
            return QCoreApplication::translate("desktop::PlanPanel", "&Terrain");
        case PlanLayer::Annotations:
            return QCoreApplication::translate("desktop::PlanPanel", "&Annotations");
    }
    return {};
}

PlanLayers PlanLayers::remembered() {
    PlanLayers layers;
    const QSettings settings;
    for (const PlanLayer layer : PlanLayerList) {
        layers.set(layer, settings.value(keyOf(layer), layers.has(layer)).toBool());
    }
    return layers;
}

void PlanLayers::remember() const {
    QSettings settings;
    for (const PlanLayer layer : PlanLayerList) settings.setValue(keyOf(layer), has(layer));
}

}  // namespace desktop
