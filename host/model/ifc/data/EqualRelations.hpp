#pragma once

#include "model/ifc/index/Workspace.hpp"

namespace model::ifc {

/// Classifications that a command gave to several elements alike become one reference and one relation that names them
/// all, as authoring tools write it; so do property sets with `sets`. Each edit makes them for one element, since only
/// at the command's end it is known what is alike.
///
/// Joined is what the command made for one element alone, and nothing else: what the file had stays as it is. One
/// exception: elements that left a relation in the command, and would get one equal to what it has become for the last
/// of them, stay in it. No element lists anything in another order than before, so one whose order forbids it keeps
/// its own.
/// @param firstNew  The first slot that the command made. A command must be open.
Status joinEqualRelations(Workspace& work, step::Slot firstNew, bool sets);

}  // namespace model::ifc
