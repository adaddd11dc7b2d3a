#pragma once
// Which rooms (IfcSpace) elements belong to. Not kept in the model: no edit moves an element to another room.

#include "model/Model.hpp"

#include <compare>
#include <vector>

namespace model {

struct InRoom {
    Element element;
    Element room;
    auto operator<=>(const InRoom&) const = default;
};

/// Sorted by element, then room. Elements belong to the room that contains them, and so do their parts. Doors and
/// windows, which are mostly contained in their storey, belong to the rooms whose boundaries name them. A room belongs
/// to itself. The time is linear in the size of the file, but for sorting what is found; without rooms there is nothing
/// to do.
std::vector<InRoom> rooms(const Model& model);

}  // namespace model
