#include "console/output/Json.hpp"

#include "console/output/StandardOutput.hpp"

namespace console {
namespace {

std::string serialize(const JsonValue& json, int indent) {
    // File names and messages can hold bytes that are no UTF-8.
    return json.dump(indent, ' ', false, JsonValue::error_handler_t::replace) + "\n";
}

}  // namespace

JsonValue toJson(const ListRow& row) {
    JsonValue color;
    if (row.color) color = {row.color->red, row.color->green, row.color->blue};
    JsonValue json;
    json["columns"] = row.columns;
    json["status"] = row.status;
    json["color"] = std::move(color);
    return json;
}

JsonValue toJson(const std::vector<ListRow>& rows) {
    JsonValue array = JsonValue::array();
    for (const ListRow& row : rows) array.push_back(toJson(row));
    return array;
}

JsonValue toJson(const std::vector<model::UnknownClass>& classes) {
    JsonValue list = JsonValue::array();
    for (const model::UnknownClass& each : classes) {
        list.push_back({{"class", each.name}, {"instances", each.instances}});
    }
    return list;
}

void printDocument(const JsonValue& document) {
    print(serialize(document, Terminal::standardOutput().present ? 2 : -1));
}

void printLine(const JsonValue& object) {
    print(serialize(object, -1));
    flushStandardOutput();
}

}  // namespace console
