#include "services/operations/Input.hpp"

#include "services/ArcThroughPoints.hpp"
#include "services/Neigs.hpp"
#include "services/Session.hpp"

#include <cstring>

namespace host::services {

namespace {

/// Asks the front end for a click. @return nothing: cancelled.
template <std::size_t size>
std::optional<PickedPoint> pick(const char (&prompt)[size]) {
    const PointPicker& picker = session().picker;
    if (!picker) return std::nullopt;
    return picker(std::string(prompt, strnlen(prompt, size)));
}

/// The part of the element that was hit. An element of a type without parts is empty space to a click.
API_Neig neigOf(const API_Guid& guid) {
    API_Neig neig{};
    model::Element element{};
    if (findElement(guid, element) != NoError) return neig;
    const std::optional<NeigPart> part = neigOfType(session().model->typeId(element));
    if (!part) return neig;
    neig.neigID = part->id;
    neig.guid = guid;
    neig.inIndex = part->index;
    return neig;
}

}  // namespace

GSErrCode getPoint(API_GetPointType* request) {
    if (request == nullptr) return APIERR_BADPARS;
    const std::optional<PickedPoint> picked = pick(request->prompt);
    if (!picked) return APIERR_CANCEL;
    request->pos = picked->position;
    request->neig = picked->hit ? neigOf(*picked->hit) : API_Neig{};
    return NoError;
}

GSErrCode getLine(API_GetLineType* request) {
    if (request == nullptr) return APIERR_BADPARS;
    const std::optional<PickedPoint> picked = pick(request->prompt);
    if (!picked) return APIERR_CANCEL;
    request->pos = picked->position;
    return NoError;
}

GSErrCode getArc(API_GetArcType* request) {
    if (request == nullptr) return APIERR_BADPARS;
    API_Coord3D start = request->startCoord, end = request->endCoord;
    if (request->startCoordGiven == 0) {
        for (API_Coord3D* asked : {&start, &end}) {
            const std::optional<PickedPoint> picked = pick(request->prompt);
            if (!picked) return APIERR_CANCEL;
            *asked = picked->position;
        }
    }
    const std::optional<PickedPoint> bulge = pick(request->prompt);
    if (!bulge) return APIERR_CANCEL;
    const std::optional<Arc> arc = arcThrough(start, bulge->position, end);
    if (!arc) return APIERR_REFUSEDPAR;
    request->startCoord = start;
    request->endCoord = end;
    request->origo = arc->centre;
    request->negArc = arc->clockwise ? 1 : 0;
    return NoError;
}

}  // namespace host::services
