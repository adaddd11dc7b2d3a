#pragma once

#include "model/ifc/geometry/Placement.hpp"

namespace model::ifc {

/// A place on a curve, so far from its beginning: x points along the curve, y to the left, z upwards. Curves are
/// polylines, those of indexed points, and the axes of tracks and roads: composite curves of lines, arcs and clothoids,
/// and gradient curves of straight and round pieces over these, along which distances are measured in plan. Nothing for
/// curves of other kinds or of more than MostPieces pieces, and beyond their ends.
std::optional<Frame> frameAlong(Workspace& work, step::Slot curve, double distance);

/// An argument that is a length: nothing for a parameter of the curve's own, which is a part of its length or an angle.
std::optional<double> lengthIn(const step::Instance& instance, std::size_t attributeIndex);

/// Each thing beside a track is found along all of the track, which is read once for all of them: this bounds what many
/// of them cost.
inline constexpr std::size_t MostPieces = 2000;
/// Of all the curves that are kept in memory: some megabytes.
inline constexpr std::size_t MostKeptPieces = 50'000;

}  // namespace model::ifc
