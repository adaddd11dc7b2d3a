#pragma once
// What a person sees, as JSON: an open dialog, a file dialog, the menus.

#include "console/output/Json.hpp"
#include "services/Host.hpp"

namespace console {

/// Title, size, and the items with number, kind, text and rectangle [left, top, right, bottom]; a list with its tab
/// fields, header and rows.
JsonValue dialogAsJson(const frontend::Dialog& dialog);
JsonValue fileRequestAsJson(const frontend::FileRequest& request);
/// The items numbered as {"menu":n} picks them.
JsonValue menusAsJson(const std::vector<host::Menu>& menus);

}  // namespace console
