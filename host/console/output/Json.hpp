#pragma once
// JSON as the commands print it: keys in the order in which they were set, always valid UTF-8.

#include "console/output/ListRows.hpp"
#include "model/base/Records.hpp"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace console {

using JsonValue = nlohmann::ordered_json;

/// {"columns": [...], "status": 0, "color": null or [red, green, blue]}
JsonValue toJson(const ListRow& row);
JsonValue toJson(const std::vector<ListRow>& rows);

/// [{"class": "IFCX", "instances": 3}, ...]
JsonValue toJson(const std::vector<model::UnknownClass>& classes);

/// Indented on a terminal, one line in a file or pipe; ends with a line end.
void printDocument(const JsonValue& document);
/// One line, out at once: its reader may be waiting for it.
void printLine(const JsonValue& object);

}  // namespace console
