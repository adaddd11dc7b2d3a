#pragma once
// JSON as the commands print it: keys in the order in which they were set, always valid UTF-8. Characters that a
// terminal obeys or does not show are escaped (TerminalText.hpp): it stays the same JSON, and can be printed anywhere.

#include "importing/ListRows.hpp"
#include "model/base/Records.hpp"

#include <nlohmann/json.hpp>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace console {

using JsonValue = nlohmann::ordered_json;

/// {"columns": [...], "status": 0, "color": null or [red, green, blue]}
JsonValue toJson(const importing::ListRow& row);
JsonValue toJson(const std::vector<importing::ListRow>& rows);

/// Prints one object member by member, so that long lists need not be in memory as a whole. Indented on a terminal, one
/// line in a file or pipe; ends with a line end.
class JsonDocument {
public:
    JsonDocument();

    void member(std::string_view name, const JsonValue& value);
    void member(std::string_view name, const std::vector<importing::ListRow>& rows);
    /// `count` elements of an array, each made when it is printed.
    void member(std::string_view name, std::size_t count, const std::function<JsonValue(std::size_t)>& element);
    /// To be called once, at the end.
    void finish();

private:
    void startMember(std::string_view name);
    void printIfLarge();

    bool indented_;
    bool empty_ = true;
    std::string pending_;
};

/// In one line.
std::string compact(const JsonValue& value);
void printDocument(const JsonValue& document);
/// One line, out at once: its reader may be waiting for it.
void printLine(const JsonValue& object);

}  // namespace console
