#include "console/script/DialogAsJson.hpp"

#include "console/output/HostText.hpp"

namespace console {
namespace {

const char* kindName(frontend::ItemKind kind) {
    switch (kind) {
        case frontend::ItemKind::Button:
            return "button";
        case frontend::ItemKind::EditText:
            return "edit";
        case frontend::ItemKind::StaticText:
            return "text";
        case frontend::ItemKind::List:
            return "list";
    }
    return "";
}

JsonValue tabFieldAsJson(const frontend::TabField& field) {
    return {{"begin", field.begin},
            {"end", field.end},
            {"justification", field.justification},
            {"truncation", field.truncation},
            {"separator", field.separator},
            {"status", field.status}};
}

void addList(JsonValue& item, const frontend::List& list) {
    item["tabFields"] = JsonValue::array();
    for (const frontend::TabField& field : list.tabFields()) item["tabFields"].push_back(tabFieldAsJson(field));
    item["header"] = importing::readHeader(list);
    item["rows"] = toJson(importing::RowReader().readFrom(list));
    item["rowsLost"] = list.rowsLost();
}

JsonValue itemAsJson(const frontend::Item& item) {
    JsonValue json;
    json["number"] = item.number;
    json["kind"] = kindName(item.kind);
    json["text"] = toUtf8(item.text);
    json["rect"] = {item.rect.left, item.rect.top, item.rect.right, item.rect.bottom};
    if (item.list) addList(json, *item.list);
    return json;
}

}  // namespace

JsonValue dialogAsJson(const frontend::Dialog& dialog) {
    JsonValue json;
    json["dialog"] = dialog.resourceId();
    json["title"] = toUtf8(dialog.title());
    json["size"] = {dialog.width(), dialog.height()};
    json["items"] = JsonValue::array();
    for (const frontend::Item& item : dialog.items()) json["items"].push_back(itemAsJson(item));
    return json;
}

JsonValue fileRequestAsJson(const frontend::FileRequest& request) {
    JsonValue json;
    json["title"] = toUtf8(request.title);
    json["filters"] = JsonValue::array();
    for (const frontend::FileFilter& filter : request.filters) {
        json["filters"].push_back(
            {{"description", toUtf8(filter.description)}, {"extension", toUtf8(filter.extension)}});
    }
    return json;
}

JsonValue menusAsJson(const std::vector<host::Menu>& menus) {
    JsonValue json = JsonValue::array();
    int number = 0;
    for (const host::Menu& menu : menus) {
        JsonValue items = JsonValue::array();
        for (const host::MenuItem& item : menu.items) {
            items.push_back({{"item", ++number},
                             {"text", toUtf8(item.text)},
                             {"prompt", toUtf8(item.prompt)},
                             {"enabled", item.enabled},
                             {"checked", item.checked}});
        }
        json.push_back({{"title", toUtf8(menu.title)}, {"items", std::move(items)}});
    }
    return json;
}

}  // namespace console
